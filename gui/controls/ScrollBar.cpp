#include "gui/controls/ScrollBar.h"

#include <algorithm>

namespace GUI {

using Utilities::Anything;

namespace {

constexpr char const* positionKey = "Position";

} // namespace

void ScrollBar::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                           DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    RegisterOnUpdate();
}

long ScrollBar::Range::GetLast() const {
    long const last = std::max(values - 1, 0L);
    return std::max(last - std::max(shown - 1, 0L), 0L);
}

ScrollBar::Range const& ScrollBar::ReadRange() {
    auto const read = [this](char const* key, long& field) {
        if (Anything const value = GetValue(key); value.IsValid()) field = value.GetLong();
    };
    read("NumberOfValues", range_.values);
    read("NumberOfShowValues", range_.shown);
    read(positionKey, range_.position);
    return range_;
}

void ScrollBar::OnMoved(long position) {
    CallScope const call(*this);
    if (position == range_.position) return;
    range_.position = position;
    TellValue(positionKey, position);
    Fire("OnChange", position);
}

} // namespace GUI
