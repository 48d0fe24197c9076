#include "hosts/colourdesk/Gallery.h"

#include "Utilities/NamingService.h"
#include "core/base/Exceptions.h"
#include "gui/elements/Pane.h"
#include "gui/elements/application/ApplicationImplementation.h"
#include "gui/elements/description/Attributes.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "hosts/colourdesk/GalleryData.h"
#include "hosts/colourdesk/PressData.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace ColourDesk {

using GUI::DescriptionTree;
using Norvelian::Utilities::Exceptions::ResourceException;
using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

constexpr char const* tabs = "GalleryTabs";
constexpr char const* pages = "GalleryPages";
constexpr char const* tabSuffix = "Tab";
constexpr char const* pageSuffix = "Page";
constexpr char const* pressPage = "Press";
constexpr char const* exampleWindow = "Example";

std::string NameOf(DescriptionTree const& node) {
    return GUI::AttributeReader(node).Text(GUI::CommonAttributes::elementName);
}

std::string StateOf(std::string const& name) {
    auto const dot = name.find('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string ComponentOf(std::string const& name) { return name.substr(0, name.find('.')); }

/// The examples below a node.
void Collect(DescriptionTree const& node, std::vector<SmartPointer<DescriptionTree>>& examples) {
    for (auto child = node.GetChildren(); child.IsValid(); ++child) {
        if (!StateOf(NameOf(*child.Current())).empty()) examples.push_back(child.Current());
        Collect(*child.Current(), examples);
    }
}

DescriptionTree const* FindNode(DescriptionTree const& node, String const& name) {
    for (auto child = node.GetChildren(); child.IsValid(); ++child) {
        if (NameOf(*child.Current()) == name.GetStdString()) return child.Current().Get();
        if (auto const* const found = FindNode(*child.Current(), name)) return found;
    }
    return nullptr;
}

Anything Illuminants() {
    constexpr char const* names[] = {"A", "C", "D50", "D55", "D65", "D75", "F2", "F7", "F11"};
    Anything::VectorOfAnythings texts(static_cast<std::uint32_t>(std::size(names)));
    std::copy(std::begin(names), std::end(names), texts.begin());
    return texts;
}

/// Pictures of states that only the mouse brings about.
void PutMouseOver(GUI::GUIElement const& root, std::string const& name) {
    if (StateOf(name) != "Over") return;
    if (auto* const pane = dynamic_cast<GUI::Pane*>(&root.FindElement(name))) pane->OnMouseMove(1, 1);
}

/// Data and selections come by updates and events, as a host's do.
void BringData(GUI::GUIElement const& root, std::string const& name) {
    std::string message = PressData::MessageOf(ComponentOf(name), StateOf(name));
    if (message.empty()) message = GalleryData::MessageOf(ComponentOf(name));
    if (message.empty()) return;
    GUI::GUIElement& element = root.FindElement(name);
    element.OnUpdate("Properties");
    element.OnUpdate(String(message));
    if (StateOf(name) != "Selected") return;
    if (auto* const pane = dynamic_cast<GUI::Pane*>(&element)) pane->Select({});
    if (ComponentOf(name) == "Grid") element.OnUpdate(GalleryData::SelectCell(3, 3));
}

SmartPointer<DescriptionTree> Node(char const* type) {
    auto node = Utilities::MakeSmart<DescriptionTree>();
    (*node)["GUIElementType"] = type;
    return node;
}

/// A window for one example, which has room around it.
DescriptionTree WindowFor(SmartPointer<DescriptionTree> const& example) {
    constexpr char const* margin = "8";
    auto const frame = Node("FrameBox");
    for (char const* const side : {"Left", "Top", "Right", "Bottom"}) (*frame)[side] = margin;
    frame->AddChild(example);
    DescriptionTree window;
    window["GUIElementType"] = "Window";
    window["ElementName"] = exampleWindow;
    GUI::AttributeReader const reader(*example);
    auto const size = [&reader](GUI::Attribute const& attribute, unsigned long otherwise) {
        unsigned long const asked = reader.Unsigned(attribute);
        return String((asked != 0 ? asked : otherwise) + 16UL);
    };
    window["Width"] = size(GUI::CommonAttributes::minimalWidth, 40);
    window["Height"] = size(GUI::CommonAttributes::minimalHeight, 40);
    window.AddChild(frame);
    return window;
}

} // namespace

Gallery::Gallery()
    : description_(GUI::GUIDescriptionReader::GetGUIDescriptionTree("Gallery")),
      noParent_(
          Utilities::ResolveComponent<GUI::PlatformIndependentWindowID>("PlatformIndependentWindowID")) {}

Gallery::~Gallery() { window_ = nullptr; }

GUI::GUIElement& Gallery::Open(DescriptionTree const& description) {
    window_ = Utilities::ResolveComponent<GUI::GUIElement>("Window");
    window_->Initialize(*noParent_, description, this);
    return *window_;
}

void Gallery::BringStates(DescriptionTree const& node) {
    std::vector<SmartPointer<DescriptionTree>> examples;
    Collect(node, examples);
    for (auto const& example : examples) {
        PutMouseOver(*window_, NameOf(*example));
        BringData(*window_, NameOf(*example));
    }
}

GUI::GUIElement& Gallery::Show() {
    Open(description_);
    if (auto const* const page = FindNode(description_, page_ + pageSuffix)) BringStates(*page);
    return *window_;
}

long Gallery::OnPageChosen(Anything const& tab) {
    std::string const name = tab.GetString();
    page_ = name.substr(0, name.size() - std::string_view(tabSuffix).size());
    ExecuteCallback(pages, "OnUpdate", {});
    if (auto const* const page = FindNode(description_, page_ + pageSuffix)) BringStates(*page);
    return 0;
}

Utilities::Callback Gallery::GetCallback(String const& element, String const& event) {
    if (element == tabs && event == "OnTabChanged")
        return Utilities::MakeCallback(this, &Gallery::OnPageChosen);
    return DialogHandler::GetCallback(element, event);
}

void Gallery::WritePictures(std::string const& directory, GUI::ApplicationImplementation& platform) {
    std::error_code failure;
    std::filesystem::create_directories(directory, failure);
    if (failure) throw ResourceException(directory + ": " + failure.message());
    DescriptionTree const* const all = FindNode(description_, pages);
    for (auto page = all->GetChildren(); page.IsValid(); ++page) {
        std::string const name = NameOf(*page.Current());
        page_ = name.substr(0, name.size() - std::string_view(pageSuffix).size());
        std::vector<SmartPointer<DescriptionTree>> examples;
        Collect(*page.Current(), examples);
        for (auto const& example : examples) WritePicture(example, directory, platform);
    }
}

void Gallery::WritePicture(SmartPointer<DescriptionTree> const& example, std::string const& directory,
                           GUI::ApplicationImplementation& platform) {
    std::string const file = directory + "/" + NameOf(*example) + ".png";
    DescriptionTree const description = WindowFor(example);
    GUI::GUIElement& window = Open(description);
    BringStates(description);
    if (!platform.SaveWindowPicture(window, file))
        throw ResourceException(file + ": the picture can't be written");
}

Anything Gallery::GetValue(String const& element, String const& name) {
    if (element == pages && name == "CurrentView") return page_ + pageSuffix;
    if (element == tabs && name == "CurrentTab") return page_ + tabSuffix;
    if ((element == "Gallery" || element == exampleWindow) && name == "Theme") return theme_;
    std::string const state = StateOf(element);
    // The graphs in charts ask without a state, so the page tells whose they are.
    if (page_ == pressPage || !state.empty())
        if (Anything data = PressData::GetValue(ComponentOf(element), state, name); data.IsValid())
            return data;
    if (Anything data = GalleryData::GetValue(ComponentOf(element), state, name); data.IsValid()) return data;
    if (state.empty()) return {};
    if (name == "Enable" || name == "Enabled") return !state.ends_with("Disabled");
    if (name == "Focus") return state.ends_with("Focus");
    if (name == "State" && state.ends_with("Down")) return true;
    if (name == "State" && state == "Undecided") return 2L;
    if (name == "EntryTexts") return Illuminants();
    if (name == "SelectedEntry") return "D65";
    if (name == "NumberOfValues") return 100L;
    if (name == "NumberOfShowValues") return 25L;
    if (name == "Position") return 30L;
    if (name == "ButtonColor") return "229,112,68";
    if (name == "CurrentTab") return String(state + "Readings");
    return {};
}

} // namespace ColourDesk
