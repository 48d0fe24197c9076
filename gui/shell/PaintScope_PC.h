#pragma once

#include <QWidget>

namespace GUI {

/// Marks a top-level window as being painted, for as long as it lives. The platform paints a window and
/// everything in it in one pass, and that pass must not be entered again from within.
class PaintScope {
public:
    explicit PaintScope(QWidget const& widget);
    PaintScope(PaintScope const&) = delete;
    PaintScope& operator=(PaintScope const&) = delete;
    ~PaintScope();

    /// Whether a widget's top-level window is being painted.
    static bool IsPainting(QWidget const& widget);
    /// Whether any window is being painted.
    static bool IsPainting();

private:
    QWidget const* window_;
    PaintScope const* outer_;
};

} // namespace GUI
