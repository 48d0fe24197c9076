#include "gui/controls/ListBox_PC.h"

#include "gui/elements/description/ElementRegistration.h"

#include <QItemSelectionModel>

namespace GUI {

using Utilities::Anything;

namespace {

ElementRegistration<ListBox_PC, GUIElement> const registration({"ListBox", "$Revision: 1.11 $", "GUI"},
                                                               ListBox::attributes);

} // namespace

void ListBox_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    ListBox::Initialize(parent, description, dataSource);
    auto& list = control_.Make<CNorvelianListBox>(parent, "ListBox: Couldn't create it !!!");
    list.setModel(&model_);
    control_.Connect(*list.selectionModel(), &QItemSelectionModel::currentChanged,
                     [this](QModelIndex const& current, QModelIndex const& /*former*/) {
                         if (!selecting_ && current.isValid())
                             ReportSelection(GetEntries()[current.row()], current.row());
                     });
    ReadTexts(AttributeReader(description));
    OnUpdate({});
}

void ListBox_PC::OnDetach() {
    selecting_ = true;
    // The widget may live on for the rest of this event.
    model_.SetEntries(nullptr);
    NativeElement::OnDetach();
}

void ListBox_PC::ShowEntries() {
    if (!GetControl()) return;
    selecting_ = true;
    model_.SetEntries(&GetEntries());
    selecting_ = false;
}

void ListBox_PC::Select(long index) {
    if (!GetControl()) return;
    selecting_ = true;
    GetControl()->setCurrentIndex(index < 0 ? QModelIndex() : model_.index(static_cast<int>(index)));
    selecting_ = false;
}

long ListBox_PC::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    UpdateControl();
    UpdateEntries();
    return ListBox::OnUpdate(command);
}

} // namespace GUI
