#include "gui/tree/TreeView_PC.h"

#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

using Utilities::Anything;

namespace {

ElementRegistration<TreeView_PC, GUIElement> const registration({"TreeView", "$Revision: 1.28 $", "GUI"},
                                                                TreeView::attributes);

} // namespace

void TreeView_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                             DialogDataSource* dataSource) {
    TreeView::Initialize(parent, description, dataSource);
    auto& tree = control_.Make<CNorvelianTreeCtrl>(parent, "TreeView: Couldn't create it !!!");
    AttributeReader const reader(description);
    tree.SetElement(this);
    CNorvelianTreeCtrl::Drags drags;
    drags.moves = reader.Flag(movableAttribute);
    drags.leaves = reader.Flag(draggableAttribute);
    drags.takes = reader.Flag(droppableAttribute);
    drags.fill = [this](DragContent& content) { content.Merge(GetDragData()); };
    drags.take = [this](DropDataObject const& data, TreeDropPlace const& place) {
        return TakeDrop(data, place);
    };
    tree.SetDragging(std::move(drags));
    SetUpTree();
    ReadTexts(reader);
    OnUpdate("");
}

long TreeView_PC::OnUpdate(Anything const& command) {
    // A question in the middle may let the tree go; its window stays until the end.
    EventScope const event(QThread::currentThread()->loopLevel());
    CallScope const call(*this);
    UpdateControl();
    return IsAttached() ? TreeView::OnUpdate(command) : 0;
}

void TreeView_PC::OnDetach() {
    if (auto* const tree = GetControl()) {
        tree->SetObserver(nullptr);
        tree->SetElement(nullptr);
        tree->SetDragging({});
    }
    NativeElement::OnDetach();
}

} // namespace GUI
