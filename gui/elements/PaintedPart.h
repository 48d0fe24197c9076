#pragma once

#include "gui/elements/Pane.h"

#include <algorithm>
#include <optional>

namespace GUI {

/// A part of a pane, in its pixels; right and bottom are outside.
struct PaneBox {
    long left = 0;
    long top = 0;
    long right = 0;
    long bottom = 0;

    bool Meets(PaneBox const& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    /// The smallest box around both.
    PaneBox Around(PaneBox const& other) const {
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }
};

/// A device context that knows which part of the pane is being painted. What is outside may be left out.
class PaintedPart {
public:
    virtual ~PaintedPart() = default;
    /// A box around all that is painted; none for the whole pane.
    virtual std::optional<PaneBox> GetPaintedBox() const = 0;
};

/// Whether a part of the pane is being painted.
inline bool IsPainted(PlatformIndependentDeviceContext const& context, PaneBox const& box) {
    auto const* const part = dynamic_cast<PaintedPart const*>(&context);
    auto const painted = part ? part->GetPaintedBox() : std::nullopt;
    return !painted || painted->Meets(box);
}

/// The identity of a window that can be painted in part.
class PartlyPaintedWindow {
public:
    virtual ~PartlyPaintedWindow() = default;
    virtual void RepaintPart(PaneBox const& box) = 0;
};

/// `Pane::Repaint` for what has changed; the whole pane where its window can't do that.
inline void RepaintPart(Pane& pane, PaneBox const& box) {
    auto const window = pane.GetWindowID();
    if (auto* const partly = dynamic_cast<PartlyPaintedWindow*>(window.Get()))
        partly->RepaintPart(box);
    else
        pane.Repaint();
}

} // namespace GUI
