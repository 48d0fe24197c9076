#include "gui/charts/Chart.h"

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Norvelian::Utilities::Exceptions::RuntimeException;
using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

void Chart::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                       DialogDataSource* dataSource) {
    Pane::Initialize(parent, description, dataSource);
    RegisterOnUpdate();
}

Utilities::SmartPointer<DescriptionTree> Chart::DescribeGraph(char const* type, char const* name) {
    auto graph = Utilities::MakeSmart<DescriptionTree>();
    (*graph)["GUIElementType"] = type;
    (*graph)["ElementName"] = name;
    (*graph)["Register"] = "No";
    (*graph)["MinimalWidth"] = "10";
    (*graph)["MaximalWidth"] = "10000";
    (*graph)["MinimalHeight"] = "10";
    (*graph)["MaximalHeight"] = "10000";
    return graph;
}

void Chart::CreateChildren() { SetGUIDescriptionTree(graphDescription_, this); }

void Chart::FireCallback(String const& element, String const& event, Anything const& argument) {
    Callback callback;
    try {
        callback = callbacks_.At(element, event);
    } catch (OutOfRangeException const&) {
        Diagnostics::String text = element.GetValueString();
        text += " - ";
        text += event.GetValueString();
        text += " - Callback undefined ";
        throw RuntimeException(text.GetCharPointer());
    }
    callback.Execute(argument);
}

Anything Chart::GetValue(String const& element, String const& name) {
    return GetDataSource() ? GetDataSource()->GetValue(element, name) : Anything();
}

void Chart::SetCallback(String const& element, String const& name, Callback const& callback) {
    callbacks_.Set(element, name, callback);
}

Callback Chart::GetCallback(String const& /*element*/, String const& /*name*/) { return {}; }

} // namespace GUI
