#include "hosts/colourdesk/AboutBox.h"

#include "Utilities/InformationServices.h"
#include "Utilities/NamingService.h"
#include "Utilities/ProgramDirectory.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/ClipboardService.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "hosts/colourdesk/Version.h"

#include <algorithm>
#include <vector>

namespace ColourDesk {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;
namespace Services = InformationServices;

namespace {

std::string Lines(Services::Information const& information) {
    std::vector<std::string> lines;
    for (auto pair = information->Begin(); pair.IsValid(); ++pair)
        lines.push_back(pair.GetKey().GetStdString() + ": " + pair.GetValue().GetStdString());
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (std::string const& line : lines) text += line + '\n';
    return text;
}

} // namespace

std::string AboutBox::MakeSupportText() {
    std::string text = std::string("Colour Desk ") + version + "\n" + Utilities::GetExecutablePath() + "\n\n";
    text += Lines(Utilities::ResolveComponent<Services::OperatingSystemInformationImplementation>(
                      "OperatingSystemInformationImplementation")
                      ->GetInformation());
    text += "\nModules\n";
    text += Lines(Utilities::ResolveComponent<Services::LoadedModulNamesImplementation>(
                      "LoadedModulNamesImplementation")
                      ->GetModules());
    return text;
}

void AboutBox::Show(GUI::PlatformIndependentWindowID const& parent) {
    text_ = MakeSupportText();
    auto const description = GUI::GUIDescriptionReader::GetGUIDescriptionTree("About");
    dialog_ = Utilities::ResolveComponent<GUI::Dialog>("Dialog");
    dialog_->Initialize(parent, description, this);
    dialog_->RunModal();
    dialog_ = nullptr;
}

Anything AboutBox::GetValue(String const& element, String const& key) {
    if (element == "Version" && key == GUI::Values::caption)
        return (std::string("Colour Desk ") + version).c_str();
    if (element == "SupportText" && key == "Text") return text_.c_str();
    return {};
}

Callback AboutBox::GetCallback(String const& element, String const& event) {
    if (element == "Copy" && event == GUI::Events::click)
        return Utilities::MakeCallback(this, &AboutBox::OnCopy);
    if (element == "Close" && event == GUI::Events::click)
        return Utilities::MakeCallback(this, &AboutBox::OnCloseButton);
    return DialogHandler::GetCallback(element, event);
}

long AboutBox::OnCopy(Anything const& /*argument*/) {
    auto const source = Utilities::ResolveComponent<GUI::DataSource>("DataSource");
    source->AddText("Text", text_);
    source->SetClipboard();
    return 0;
}

long AboutBox::OnCloseButton(Anything const& /*argument*/) {
    if (!dialog_.IsNull()) dialog_->Close(0);
    return 0;
}

} // namespace ColourDesk
