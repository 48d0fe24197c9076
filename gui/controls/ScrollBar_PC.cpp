#include "gui/controls/ScrollBar_PC.h"

#include "gui/elements/description/ElementRegistration.h"

#include <QSignalBlocker>
#include <algorithm>

namespace GUI {

using Utilities::Anything;

namespace {

ElementRegistration<ScrollBar_PC, GUIElement> const registration({"ScrollBar", "$Revision: 1.12 $", "GUI"},
                                                                 ScrollBar::attributes);

} // namespace

void ScrollBar_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                              DialogDataSource* dataSource) {
    ScrollBar::Initialize(parent, description, dataSource);
    auto& bar = control_.Make<CNorvelianScrollBar>(parent, "ScrollBar: Couldn't create it !!!");
    AttributeReader const reader(description);
    bool const isHorizontal = reader.FlagUnlessNo(CommonAttributes::justificationOnX);
    bar.setOrientation(isHorizontal ? Qt::Horizontal : Qt::Vertical);
    control_.Connect(bar, &QScrollBar::valueChanged, [this](int position) { OnMoved(position); });
    ReadTexts(reader);
    OnUpdate({});
}

void ScrollBar_PC::Enable(bool enabled) {
    enabled_ = enabled;
    ShowEnabled();
}

void ScrollBar_PC::ShowEnabled() { control_.Enable(enabled_ && canMove_); }

long ScrollBar_PC::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    if (Anything const value = GetValue(Values::enabled); value.IsValid()) enabled_ = value.GetBool();
    UpdateControl();
    Range const& range = ReadRange();
    if (CNorvelianScrollBar* const bar = GetControl()) {
        QSignalBlocker const quiet(bar);
        bar->setRange(0, static_cast<int>(range.GetLast()));
        bar->setPageStep(static_cast<int>(std::max(range.shown, 1L)));
        bar->setValue(static_cast<int>(std::clamp(range.position, 0L, range.GetLast())));
        canMove_ = range.GetLast() > 0;
        ShowEnabled();
    }
    return ScrollBar::OnUpdate(command);
}

} // namespace GUI
