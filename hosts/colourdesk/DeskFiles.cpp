#include "hosts/colourdesk/DeskFiles.h"

#include "Utilities/NamingService.h"

namespace ColourDesk {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

void DeskFiles::Open(GUI::PlatformIndependentWindowID const& parent, Handler handler) {
    proposed_.clear();
    Show(parent, false, std::move(handler));
}

void DeskFiles::SaveAs(GUI::PlatformIndependentWindowID const& parent, std::string const& proposed,
                       Handler handler) {
    proposed_ = proposed;
    Show(parent, true, std::move(handler));
}

void DeskFiles::Show(GUI::PlatformIndependentWindowID const& parent, bool saves, Handler handler) {
    handler_ = std::move(handler);
    GUI::DescriptionTree description;
    description["GUIElementType"] = "FileDialog";
    // Both begin where the other one ended.
    description["ElementName"] = "SampleFiles";
    description["Mode"] = saves ? "Save" : "Open";
    description["Filters"] = "Files of measurements|*.txt *.cgats *.it8 *.ti3 *.xml *.cxf;All files|*";
    description["Suffix"] = "txt";
    description["Preview"] = "Yes";
    dialog_ =
        Utilities::SmartPointer<GUI::FileDialog>(Utilities::ResolveComponent<GUI::GUIElement>("FileDialog"));
    dialog_->Initialize(parent, description, this);
    dialog_->Open();
}

Anything DeskFiles::GetValue(String const& /*element*/, String const& key) {
    return key == "File" && !proposed_.empty() ? Anything(proposed_.c_str()) : Anything();
}

Callback DeskFiles::GetCallback(String const& element, String const& event) {
    if (event == "OnFileChosen") return Utilities::MakeCallback(this, &DeskFiles::OnFileChosen);
    return DialogHandler::GetCallback(element, event);
}

long DeskFiles::OnFileChosen(Anything const& file) {
    if (handler_) handler_(file.GetString());
    return 0;
}

} // namespace ColourDesk
