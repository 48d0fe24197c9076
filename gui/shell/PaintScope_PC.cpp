#include "gui/shell/PaintScope_PC.h"

namespace GUI {

namespace {

PaintScope const* innermost = nullptr;

} // namespace

PaintScope::PaintScope(QWidget const& widget) : window_(widget.window()), outer_(innermost) {
    innermost = this;
}

PaintScope::~PaintScope() { innermost = outer_; }

bool PaintScope::IsPainting() { return innermost != nullptr; }

bool PaintScope::IsPainting(QWidget const& widget) {
    QWidget const* const window = widget.window();
    for (PaintScope const* scope = innermost; scope; scope = scope->outer_)
        if (scope->window_ == window) return true;
    return false;
}

} // namespace GUI
