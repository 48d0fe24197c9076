#include "gui/layout/TabbedPaneSelector.h"

#include "Diagnostics/Sink.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/layout/TabColor.h"

#include <cstdint>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

namespace {

constexpr Attribute useBitmaps{"UseBitmaps", AttributeType::Flag, "No",
                               "Leaves out the white line along the bottom edge"};
constexpr Attribute flat{"Flat", AttributeType::Flag, "No", "Without a line under the tabs; for flat ones"};
constexpr Attribute attributeList[] = {useBitmaps, flat, TabColor::baseColor};
ElementRegistration<TabbedPaneSelector, ToolBar> const
    registration({"TabbedPaneSelector", "$Revision: 1.11 $", "GUI"}, attributeList);

constexpr char const* nameKey = CommonAttributes::elementName.key;
constexpr char const* identifierKey = "ID";
constexpr char const* internalNameKey = "InternalName";
constexpr char const* currentKey = "CurrentTab";
constexpr char const* enabledKey = "TabEnabled";
constexpr char const* pressEvent = "OnLeftButtonDown";
constexpr char const* selectEvent = "OnTabSelected";
constexpr char const* captionsEvent = "OnSetTabCaptions";
constexpr char const* executeEvent = "OnTabSelectedExecute";

/// What a tab takes over as it is.
constexpr char const* copiedKeys[] = {
    "GUIElementType", "ElementName", "FrameThickness",      "FontName",        "FontSize",
    "Rise",           "Increase",    "TabHeightUnselected", "BackgroundColor", "MinimalHeight",
    "MaximalHeight",  "ToolTipText", "BaseColor",           "UseBitmaps",      "Flat"};

/// The text under a key of a record, nothing if there is none.
String TextIn(Anything const& record, char const* key) {
    if (!record.IsOfTypeMap()) return {};
    Anything const* const value = record.GetMapOfAnythings().FindValue(key);
    return value && value->IsOfTypeString() ? value->GetString() : String();
}

} // namespace

void TabbedPaneSelector::Initialize(PlatformIndependentWindowID const& parent,
                                    DescriptionTree const& description, DialogDataSource* dataSource) {
    CallScope const call(*this);
    ToolBar::Initialize(parent, description, dataSource);
    if (!IsAttached()) return;
    if (DialogDataSource* const source = GetDataSource(); source && GetElementName().Length() != 0) {
        source->SetCallback(GetElementName(), selectEvent, onTabSelected_.Get());
        source->SetCallback(GetElementName(), captionsEvent, onSetTabCaptions_.Get());
    }
    EnterMessage(executeEvent, onTabSelectedExecute_.Get());
    AttributeReader const reader(description);
    useBitmaps_ = reader.Flag(useBitmaps);
    flat_ = reader.Flag(flat);
    try {
        baseColor_ = TabColor::Read(description, baseColor_);
    } catch (OutOfRangeException const&) {
        Diagnostics::DropException("TabbedPaneSelector::Initialize");
    }
}

void TabbedPaneSelector::OnDetach() {
    onTabSelected_.Release(GetDataSource(), GetElementName(), selectEvent);
    onSetTabCaptions_.Release(GetDataSource(), GetElementName(), captionsEvent);
    onTabSelectedExecute_.Release();
    ToolBar::OnDetach();
}

// ------------------------------------------------------------------ tabs

void TabbedPaneSelector::BuildRow(DescriptionTree const& description) {
    tabNames_ = {};
    if (auto const first = description.GetChildren(); first.IsValid()) pattern_ = *first.Current();
    ToolBar::BuildRow(description);
}

void TabbedPaneSelector::FillToolDescription(DescriptionTree& tool, DescriptionTree const& entry) {
    AttributeMap const& attributes = entry;
    tool["Caption"] = attributes["Caption"];
    for (char const* const key : copiedKeys)
        if (Anything const* const value = entry.FindValue(key)) tool[key] = *value;
    auto const text = [&entry](char const* key, char const* otherwise) {
        Anything const* const value = entry.FindValue(key);
        return value ? *value : Anything(otherwise);
    };
    tool[identifierKey] = text(identifierKey, "0");
    tool["BitmapButton"] = text("Bitmap", "No");
    tool[CommonAttributes::selectable.key] = text(CommonAttributes::selectable.key, "Yes");
    tabNames_.Append(text(nameKey, "").GetString());
}

long TabbedPaneSelector::OnSetTabCaptions(Anything const& captions) {
    if (captions.GetKind() != Anything::Kind::Vector) return 0;
    CallScope const call(*this);
    auto const& entries = captions.GetVectorOfAnythings();
    DescriptionTree tabs;
    static_cast<AttributeMap&>(tabs) = GetRowDescription();
    DescriptionTree const pattern = pattern_;
    Anything const* const identifier = pattern.FindValue(identifierKey);
    long const firstIdentifier = identifier ? identifier->GetString().GetShort() : 0;
    for (std::uint32_t i = 0; i < static_cast<std::uint16_t>(entries.GetSize()); ++i) {
        auto const tab = Utilities::MakeSmart<DescriptionTree>(pattern);
        (*tab)[nameKey] = TextIn(entries[i], internalNameKey);
        (*tab)[internalNameKey] = TextIn(entries[i], internalNameKey);
        (*tab)["Caption"] = TextIn(entries[i], "Caption");
        (*tab)[identifierKey] = String(firstIdentifier + static_cast<long>(i));
        tabs.AddChild(tab);
    }
    BuildRow(tabs);
    if (IsAttached()) OnUpdate({});
    return 0;
}

std::uint32_t TabbedPaneSelector::GetPlace(String const& tab) const {
    std::uint32_t place = 0;
    for (auto name = tabNames_.Begin(); name.IsValid() && !(name.Current() == tab); ++name) ++place;
    return place;
}

String TabbedPaneSelector::GetTab(std::uint32_t place) const {
    auto name = tabNames_.Begin();
    while (name.IsValid() && place-- != 0) ++name;
    return name.IsValid() ? name.Current() : String();
}

bool TabbedPaneSelector::Shows(std::uint32_t place) const {
    if (place >= tabNames_.GetSize()) return false;
    return GetVisibleCount() == 0 ||
           (place >= GetFirstVisible() && place < GetFirstVisible() + GetVisibleCount());
}

bool TabbedPaneSelector::IsBroken(String const& tab) const {
    if (GetVisibleCount() == 0) return false;
    std::uint32_t const place = GetPlace(tab) + 1;
    return place < tabNames_.GetSize() && place == GetFirstVisible() + GetVisibleCount();
}

bool TabbedPaneSelector::IsBehindCurrent(String const& tab) const {
    std::uint32_t const place = GetPlace(tab);
    return place != 0 && place < tabNames_.GetSize() && GetTab(place - 1) == currentTab_;
}

Anything TabbedPaneSelector::GetValue(String const& element, String const& name) {
    if (IsScrollButton(element)) return ToolBar::GetValue(element, name);
    if (name == Values::caption || name == "MaxCaption" || name == enabledKey)
        return GetValue(name + " " + element);
    if (name == Values::state) return element == currentTab_;
    if (name == "IsFirstTab") return tabNames_.GetSize() != 0 && element == tabNames_.Begin().Current();
    if (name == "IsLastTab") return tabNames_.GetSize() != 0 && element == tabNames_.Last().Current();
    if (name == "IsLastTabBroken") return IsBroken(element);
    if (name == "IsNeighbourActiveTab") return IsBehindCurrent(element);
    return ToolBar::GetValue(element, name);
}

Callback TabbedPaneSelector::GetCallback(String const& element, String const& name) {
    if (name == pressEvent && IsAttached()) return onTabSelected_.Get();
    return ToolBar::GetCallback(element, name);
}

// ------------------------------------------------------------------ selecting

long TabbedPaneSelector::OnTabSelected(Anything const& tab) {
    bool useMessageService = true;
    if (tab.IsOfTypeMap())
        if (Anything const* const value = tab.GetMapOfAnythings().FindValue("UseMessageService"))
            useMessageService = value->IsOfTypeString() && value->GetString() == "Yes";
    if (useMessageService)
        SendMessage(executeEvent, tab);
    else
        OnTabSelectedExecute(tab);
    return 0;
}

bool TabbedPaneSelector::IsTabEnabled(String const& tab) {
    Anything const answer = GetValue(tab, enabledKey);
    return !answer.IsValid() || answer.GetBool();
}

void TabbedPaneSelector::RepaintTab(String const& tab) {
    std::uint32_t const place = GetPlace(tab);
    if (place >= tabNames_.GetSize()) return;
    String const behind = GetTab(place + 1);
    ExecuteCallback(tab, Events::update, {});
    if (behind.Length() != 0 && IsAttached()) ExecuteCallback(behind, Events::update, {});
}

long TabbedPaneSelector::OnTabSelectedExecute(Anything const& tab) {
    CallScope const call(*this);
    String const element = TextIn(tab, nameKey);
    if (!IsTabEnabled(element) || !IsAttached() || element == currentTab_) return 0;
    String const former = currentTab_;
    currentTab_ = element;
    // Told first: an update asks for it.
    TellValue(currentKey, element);
    if (IsAttached()) OnShowTool(currentTab_);
    if (IsAttached()) RepaintTab(former);
    if (IsAttached()) RepaintTab(currentTab_);
    if (IsAttached()) Fire("OnTabChanged", element);
    return 0;
}

long TabbedPaneSelector::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    if (Anything const tab = GetValue(currentKey); tab.IsOfTypeString()) currentTab_ = tab.GetString();
    return IsAttached() ? ToolBar::OnUpdate(command) : 0;
}

void TabbedPaneSelector::OnPaint(PlatformIndependentDeviceContext& context) {
    Pane::OnPaint(context);
    if (useBitmaps_ || flat_) return;
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    auto const y = static_cast<short>(height - 1);
    context.SetPen(RGBVector(255, 255, 255), 1, PlatformIndependentDeviceContext::solid);
    context.DrawLine(0, y, static_cast<short>(width), y);
}

// ------------------------------------------------------------------ keyboard

bool TabbedPaneSelector::IsTabStop(Pane& pane) {
    std::uint32_t const current = GetPlace(currentTab_);
    return pane.GetElementName() == (Shows(current) ? currentTab_ : GetTab(GetFirstVisible()));
}

bool TabbedPaneSelector::OnNavigationKey(NavigationKey key, Pane& focused) {
    CallScope const call(*this);
    auto const count = static_cast<std::uint32_t>(tabNames_.GetSize());
    std::uint32_t const from = GetPlace(focused.GetElementName());
    if (from >= count) return false;
    // From here in that direction, the first that can be selected; unsigned, so that -1 is beyond the end.
    std::uint32_t place = from;
    std::uint32_t step = 1;
    switch (key) {
    case NavigationKey::Left:
        step = static_cast<std::uint32_t>(-1);
        place += step;
        break;
    case NavigationKey::Right:
        ++place;
        break;
    case NavigationKey::Home:
        place = 0;
        break;
    case NavigationKey::End:
        step = static_cast<std::uint32_t>(-1);
        place = count - 1;
        break;
    default:
        return false;
    }
    while (place < count && IsAttached() && !IsTabEnabled(GetTab(place))) place += step;
    if (place < count && IsAttached()) SelectByKey(place);
    return true;
}

void TabbedPaneSelector::SelectByKey(std::uint32_t place) {
    String const tab = GetTab(place);
    if (place < GetFirstVisible()) {
        SetFirstVisible(place);
        OnUpdate({});
    }
    Anything::MapOfAnythings chosen;
    chosen[nameKey] = tab;
    if (IsAttached()) OnTabSelected(chosen);
    if (!IsAttached() || !(currentTab_ == tab) || !Shows(GetPlace(tab))) return;
    try {
        if (auto* const pane = dynamic_cast<Pane*>(&FindElement(tab))) pane->SetFocus();
    } catch (OutOfRangeException const&) {
        Diagnostics::DropException("TabbedPaneSelector: a tab without a registered element");
    }
}

} // namespace GUI
