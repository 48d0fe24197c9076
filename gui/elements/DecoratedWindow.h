#pragma once

namespace GUI {

/// A window whose elements may draw over it when it has been painted; see
/// `GUIElement::OnPaintWindowDecorators`.
class DecoratedWindow {
public:
    virtual ~DecoratedWindow() = default;
    /// Paints the whole window before it returns, or at the end of a paint that is under way.
    virtual void RepaintDecorations() const = 0;
};

} // namespace GUI
