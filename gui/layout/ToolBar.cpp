#include "gui/layout/ToolBar.h"

#include "Utilities/NamingService.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/application/MessageService.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/layout/ToolRow.h"

#include <utility>

namespace GUI {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

namespace Common = CommonAttributes;
using namespace ToolRow;

constexpr Attribute scrollingKey{"Scrolling", AttributeType::Text, "",
                                 "Any text makes scroll buttons for a row that doesn't fit"};
constexpr Attribute scrollHeightKey{
    "ScrollButtonHeight", AttributeType::Number, "16", "Height of the scroll buttons", false, unsignedRange};
constexpr Attribute scrollWidthKey{
    "ScrollButtonWidth", AttributeType::Number, "16", "Width of the scroll buttons", false, unsignedRange};
constexpr Attribute topKey{"Top", AttributeType::Number, "0", "Margin above the row", false, unsignedRange};
constexpr Attribute leftKey{"Left", AttributeType::Number, "0", "Margin left of it", false, unsignedRange};
constexpr Attribute rightKey{"Right", AttributeType::Number, "0", "Margin right of it", false, unsignedRange};
constexpr Attribute bottomKey{"Bottom", AttributeType::Number, "0", "Margin below it", false, unsignedRange};
constexpr Attribute margins[] = {topKey, leftKey, rightKey, bottomKey};
constexpr Attribute barAttributes[] = {scrollingKey, scrollHeightKey, scrollWidthKey, topKey,
                                       leftKey,      rightKey,        bottomKey};

Utilities::ComponentCreatorNormal<ToolBar> const creator({"ToolBar", "$Revision: 1.19 $", "GUI"});

constexpr Attribute internalName{"InternalName", AttributeType::Text, "",
                                 "The handler's name of the function, and the caption"};
constexpr Attribute handler{"Handler", AttributeType::Text, "", "Registered component that executes it"};
constexpr Attribute identifier{"ID", AttributeType::Text, "0", "Identifier"};
constexpr Attribute toolTip{"ToolTipText", AttributeType::Text, "", "Tool tip"};
constexpr Attribute bitmap{"Bitmap", AttributeType::Flag, "No", "The caption names pictures"};
constexpr Attribute accessibleName{"AccessibleName", AttributeType::Text, "", "Of a picture"};
constexpr Attribute toolAttributes[] = {Common::paneName,
                                        internalName,
                                        handler,
                                        identifier,
                                        toolTip,
                                        bitmap,
                                        accessibleName,
                                        Common::minimalWidth,
                                        Common::maximalWidth,
                                        Common::minimalHeight,
                                        Common::maximalHeight};
AttributeTable const toolTable("Tool", nullptr, toolAttributes, AttributeTable::Kind::Part);

constexpr char const* scrollEvent = "OnScrollTool";
constexpr char const* showEvent = "OnShowTool";

SmartPointer<MessageService> FindMessageService() {
    constexpr char const* name = "MessageService";
    if (!Utilities::NamingService::Instance()->IsRegistered(name)) return {};
    return Utilities::ResolveComponent<MessageService>(name);
}

/// True for as long as it lives.
class Flagged {
public:
    explicit Flagged(bool& flag) : flag_(flag) { flag_ = true; }
    Flagged(Flagged const&) = delete;
    Flagged& operator=(Flagged const&) = delete;
    ~Flagged() { flag_ = false; }

private:
    bool& flag_;
};

} // namespace

AttributesOf<ToolBar> const ToolBar::attributeTable("ToolBar", &Pane::attributeTable, barAttributes);

bool ToolBar::IsScrollButton(String const& element) {
    return element == leftScroll || element == rightScroll;
}

void ToolBar::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                         DialogDataSource* dataSource) {
    CallScope const call(*this);
    // The base makes no elements of the tools.
    DescriptionTree own;
    static_cast<AttributeMap&>(own) = description;
    own.SetName(description.GetName());
    CustomControl::Initialize(parent, own, dataSource);
    if (Anything const name = GetValue("SelectorName"); name.IsOfTypeString())
        messageSuffix_ = name.GetString();
    messageSuffix_ = GetElementName() + messageSuffix_;
    if (!IsAttached()) return;
    EnterMessage(scrollEvent, onScrollTool_.Get());
    if (Anything const* const value = description.FindValue(scrollingKey.key);
        value && value->IsOfTypeString())
        scrolling_ = value->GetString();
    BuildRow(description);
    if (!IsAttached()) return;
    RegisterOnUpdate();
    TellValue(Events::update, {});
    if (IsAttached()) OnUpdate({});
}

void ToolBar::OnDetach() {
    if (auto const service = messages_.GetSize() != 0 ? FindMessageService() : SmartPointer<MessageService>();
        !service.IsNull())
        for (auto message = messages_.Begin(); message.IsValid(); ++message)
            service->RemoveCallback(message.Current());
    onClick_.Release();
    onShowTool_.Release();
    onScrollClick_.Release();
    onScrollTool_.Release();
    CustomControl::OnDetach();
}

void ToolBar::EnterMessage(char const* event, Callback const& callback) {
    auto const service = FindMessageService();
    if (service.IsNull()) return;
    messages_.Append(event + messageSuffix_);
    service->SetCallback(event + messageSuffix_, callback);
}

long ToolBar::SendMessage(char const* event, Anything const& value) {
    auto const service = FindMessageService();
    return service.IsNull() ? 0 : service->SendMessage(event + messageSuffix_, value);
}

// ------------------------------------------------------------------ building

void ToolBar::FillToolDescription(DescriptionTree& tool, DescriptionTree const& entry) {
    AttributeReader const reader(entry);
    String const type = reader.Text(Common::elementType);
    bool const isComponent = Utilities::NamingService::Instance()->IsRegistered(type.GetStdString());
    tool[Common::elementType.key] = isComponent ? type : String("Button");
    for (auto const& [key, value] :
         {std::pair{"ElementName", reader.Text(Common::elementName)},
          std::pair{"Caption", reader.Text(internalName)}, std::pair{"ID", reader.Text(identifier)},
          std::pair{"BitmapButton", reader.Text(bitmap)}})
        tool[key] = value;
    for (Attribute const& attribute :
         {handler, toolTip, accessibleName, Common::selectable, Common::backgroundColor, Common::minimalWidth,
          Common::maximalWidth, Common::minimalHeight, Common::maximalHeight})
        if (Anything const* const value = entry.FindValue(attribute.key)) tool[attribute.key] = *value;
}

void ToolBar::BuildRow(DescriptionTree const& description) {
    CallScope const call(*this);
    description_ = description;
    rebuildsAgain_ = building_;
    if (building_) return;
    CreateRow();
    // What the tools asked for may have wanted another row: once more, and no oftener.
    if (IsAttached() && std::exchange(rebuildsAgain_, false)) CreateRow();
}

void ToolBar::CreateRow() {
    Flagged const building(building_);
    tools_ = {};
    Row const row(MakeNode("HBox", " "));
    auto const whole = MakeNode("HBox", " ");
    long separators = 0;
    for (auto child = description_.GetChildren(); child.IsValid(); ++child) {
        DescriptionTree const& entry = *child.Current();
        if (TextOf(entry, Common::elementType.key) == separator) {
            auto const gap = ToolRow::MakeSeparator(entry, ++separators);
            row->AddChild(gap);
            whole->AddChild(CopyOf(*gap));
            continue;
        }
        String const name = TextOf(entry, Common::elementName.key);
        auto const tool = Utilities::MakeSmart<DescriptionTree>();
        FillToolDescription(*tool, entry);
        tool->SetName(name);
        DescriptionTree known;
        for (Attribute const& attribute : {handler, internalName})
            known[attribute.key] = TextOf(entry, attribute.key);
        tools_[name] = known;
        row->AddChild(tool);
        whole->AddChild(CopyOf(*tool));
    }
    if (scrolling_.Length() != 0)
        AddScrollParts(*row, AttributeReader(description_).Text(scrollWidthKey),
                       AttributeReader(description_).Text(scrollHeightKey), description_);
    auto const frame = MakeNode("FrameBox", margin);
    for (Attribute const& side : margins) (*frame)[side.key] = AttributeReader(description_).Text(side);
    (*frame)[widthKey] = "0";
    frame->AddChild(whole);
    row->AddChild(frame);
    row_ = row;
    visibleCount_ = 0;
    if (firstVisible_ >= tools_.GetSize()) firstVisible_ = 0;
    shown_ = {};
    Show(*row, whole);
    if (IsAttached()) Measure(*row);
}

void ToolBar::Show(DescriptionTree const& row, SmartPointer<DescriptionTree> const& box) {
    auto const frame = Utilities::MakeSmart<DescriptionTree>();
    static_cast<AttributeMap&>(*frame) = *FindEntry(row, margin);
    frame->SetName(margin);
    frame->AddChild(CopyOf(*box));
    DescriptionTree content;
    content.AddChild(frame);
    SetGUIDescriptionTree(content);
}

void ToolBar::Measure(DescriptionTree& row) {
    GUIElement const* const frame = GetFirstChild();
    if (!frame || frame->GetChildrenList().GetSize() == 0) return;
    SmartPointer<GUIElement> const box = frame->GetChildrenList().Begin().Current();
    // A box has the elements of its first entries; what comes behind a failed one is missing. Those of
    // separators have no name.
    auto element = box->GetChildrenList().Begin();
    for (auto entry = row.GetChildren(); entry.IsValid(); ++entry) {
        if (!IsContent(*entry.Current())) continue;
        unsigned long width = 0;
        if (element.IsValid()) {
            SmartPointer<GUIElement> const measured = element.Current();
            unsigned long ignored = 0;
            measured->GetSize(width, ignored);
            if (width == 0) measured->GetSizeInformation(width, ignored, ignored, ignored);
            if (!IsAttached() || !measured->IsAttached()) return;
            ++element;
        }
        (*entry.Current())[widthKey] = String(width);
    }
}

void ToolBar::OnLanguageChanged() {
    CallScope const call(*this);
    CustomControl::OnLanguageChanged();
    if (!IsAttached()) return;
    BuildRow(description_);
    if (IsAttached()) OnUpdate({});
}

// ------------------------------------------------------------------ cutting and scrolling

void ToolBar::SetSize(unsigned long width, unsigned long height) {
    CallScope const call(*this);
    bool const same = IfSizeEqual(width, height);
    CustomControl::SetSize(width, height);
    if (!same && IsAttached()) OnUpdate({});
}

long ToolBar::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    updatesAgain_ = building_;
    if (building_) return 0;
    {
        Flagged const building(building_);
        CutRow();
    }
    if (IsAttached() && std::exchange(rebuildsAgain_, false)) CreateRow();
    if (IsAttached() && std::exchange(updatesAgain_, false)) {
        Flagged const building(building_);
        CutRow();
    }
    if (IsAttached()) UpdateElements();
    return IsAttached() ? CustomControl::OnUpdate(command) : 0;
}

void ToolBar::CutRow() {
    unsigned long ownWidth = 0;
    unsigned long ownHeight = 0;
    GetSize(ownWidth, ownHeight);
    auto const width = static_cast<std::uint32_t>(ownWidth);
    Row const row = row_;
    if (row.IsNull()) return;
    if (width == 0 || ContentWidth(*row) <= width) {
        if (shown_.Length() == 0) return;
        // It has been cut, and fits now.
        firstVisible_ = visibleCount_ = 0;
        shown_ = {};
        return Show(*row, FindEntry(*row, margin)->GetChildren().Current());
    }
    auto const cut = ToolRow::Cut(*row, firstVisible_, width);
    visibleCount_ = cut.visibleCount;
    if (cut.names == shown_) return;
    shown_ = cut.names;
    Show(*row, cut.box);
}

long ToolBar::OnScrollClick(Anything const& button) { return SendMessage(scrollEvent, button); }

long ToolBar::OnScrollTool(Anything const& button) {
    if (!button.IsOfTypeString()) return 0;
    if (button.GetString() == leftScroll) {
        if (firstVisible_ == 0) return 0;
        --firstVisible_;
    } else {
        if (firstVisible_ + visibleCount_ >= tools_.GetSize()) return 0;
        ++firstVisible_;
    }
    OnUpdate({});
    return 0;
}

long ToolBar::OnShowTool(Anything const& tool) {
    Row const row = row_;
    // While nothing shows, or the whole row does, nothing is beyond the edge.
    if (row.IsNull() || !tool.IsOfTypeString() || firstVisible_ + visibleCount_ == 0) return 0;
    unsigned long ownWidth = 0;
    unsigned long ownHeight = 0;
    GetSize(ownWidth, ownHeight);
    auto const width = static_cast<std::uint32_t>(ownWidth);
    std::optional<std::uint32_t> const first =
        FirstToShow(*row, tool.GetString(), firstVisible_ + visibleCount_ - 1, width);
    if (!first) return 0;
    firstVisible_ = *first;
    OnUpdate({});
    return 0;
}

// ------------------------------------------------------------------ what tools ask and tell

Callback ToolBar::GetCallback(String const& element, String const& name) {
    if (!IsAttached()) return {};
    if (IsScrollButton(element)) return name == Events::click ? onScrollClick_.Get() : Callback();
    if (name == Events::click) return onClick_.Get();
    return name == showEvent ? onShowTool_.Get() : Callback();
}

Anything ToolBar::AskHandler(String const& element, String const& key) {
    DescriptionTree const* const tool = tools_.FindValue(element);
    if (!tool || !IsAttached()) return {};
    String const name = TextOf(*tool, handler.key);
    if (name.Length() == 0) return {};
    auto* const asked = dynamic_cast<DialogDataSource*>(Application::Instance().GetRegisteredComponent(name));
    if (!asked) return {};
    CallScope const call(*this);
    return asked->GetValue(TextOf(*tool, internalName.key), key);
}

Anything ToolBar::GetValue(String const& element, String const& name) {
    if (element == leftScroll) return name == Values::enable ? Anything(firstVisible_ > 0) : Anything();
    if (element == rightScroll) {
        if (!(name == Values::enable)) return {};
        return firstVisible_ == 0 || firstVisible_ + visibleCount_ < tools_.GetSize();
    }
    if (name == Values::enabled || name == Values::enable) return AskHandler(element, Values::itemEnabled);
    if (name == Values::caption || name == Values::toolTipText || name == Values::state)
        return AskHandler(element, name);
    return {};
}

long ToolBar::OnClick(Anything const& tool) {
    if (!tool.IsOfTypeString()) return 0;
    DescriptionTree const* const known = tools_.FindValue(tool.GetString());
    if (!known) return 0;
    String const name = TextOf(*known, handler.key);
    if (name.Length() == 0) return 0;
    String const function = TextOf(*known, internalName.key);
    auto* const control = dynamic_cast<CustomControl*>(Application::Instance().GetRegisteredComponent(name));
    if (!control) return 0;
    CallScope const call(*control);
    control->GetCallback(function, Events::click).Execute({});
    return 0;
}

} // namespace GUI
