#include "gui/elements/application/RunApplicationDataSource.h"

#include "gui/elements/Topics.h"

namespace GUI {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

void RunApplicationDataSource::SetValue(String const& /*element*/, String const& /*name*/,
                                        Anything const& /*value*/) {}

Anything RunApplicationDataSource::GetValue(String const& /*element*/, String const& name) {
    if (name == Values::itemEnabled) return true;
    return {};
}

void RunApplicationDataSource::SetCallback(String const& /*element*/, String const& /*name*/,
                                           Callback const& /*callback*/) {}

Callback RunApplicationDataSource::GetCallback(String const& /*element*/, String const& name) {
    if (name == Events::click) return Utilities::MakeCallback(this, &RunApplicationDataSource::OnClick);
    return {};
}

void RunApplicationDataSource::SetProgram(String const& element, String const& path,
                                          String const& parameters) {
    if (path.Length() == 0)
        programs_.erase(element.GetStdString());
    else
        programs_[element.GetStdString()] = {path, parameters};
}

long RunApplicationDataSource::OnClick(Anything const& element) {
    auto found = programs_.end();
    if (element.IsOfTypeString()) found = programs_.find(element.GetString().GetStdString());
    if (found == programs_.end()) found = programs_.find({});
    if (found == programs_.end()) return 0;
    // The table may change while the user reads a message.
    Program const program = found->second;
    return Run(program.path, program.parameters) ? 1 : 0;
}

} // namespace GUI
