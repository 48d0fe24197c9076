#include "gui/elements/ElementDrops.h"

#include "gui/elements/DialogHandler.h"

namespace GUI {

namespace {

DropHandlerBase* FindHandler(DialogDataSource* source, Utilities::String const& element) {
    auto* const observer = dynamic_cast<DialogObserver*>(source);
    return observer ? observer->GetDropHandler(element) : nullptr;
}

} // namespace

ElementDrops::ElementDrops(GUIElement& element, PlatformIndependentWindowID const& window)
    : window_(window), source_(element.GetDataSource()),
      handler_(FindHandler(source_, element.GetElementName())) {}

bool ElementDrops::HasTaker() const { return handler_ || dynamic_cast<DialogHandler*>(source_); }

DropEffect ElementDrops::OnDragOver(DropDataObject const& data, KeyState keyState, long x, long y) const {
    if (handler_) return handler_->OnDragOver(data, keyState, x, y);
    auto* const dialog = dynamic_cast<DialogHandler*>(source_);
    return dialog ? dialog->OnDragOver(window_, data, keyState, x, y) : DropEffect::None;
}

bool ElementDrops::OnDrop(DropDataObject const& data, DropEffect effect, long x, long y) const {
    if (handler_) return handler_->OnDrop(data, effect, x, y);
    auto* const dialog = dynamic_cast<DialogHandler*>(source_);
    return dialog && dialog->OnDrop(window_, data, effect, x, y);
}

} // namespace GUI
