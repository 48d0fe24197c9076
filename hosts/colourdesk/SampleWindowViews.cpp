// Charts and patches, or all samples in a table.
#include "hosts/colourdesk/SampleWindow.h"

namespace ColourDesk {

using Utilities::Anything;
using Utilities::String;

void SampleWindow::ShowView(String const& view) {
    if (view == view_) return;
    view_ = view;
    ExecuteCallback(views, "OnUpdate", {});
    ExecuteCallback("ViewTabs", "OnUpdate", {});
    if (view == chartsView) UpdateCharts();
    UpdateGrid();
}

bool SampleWindow::IsView(std::string const& name) { return name == "Charts" || name == "Table"; }

void SampleWindow::ShowNamedView(std::string const& name) {
    ShowView(name == "Table" ? gridView : chartsView);
}

void SampleWindow::UpdateGrid() {
    if (!(view_ == gridView)) return;
    grid_.SetStandard(selected_);
    ExecuteCallback(sampleTree, "OnUpdate", "Selection");
    ExecuteCallback(sampleGrid, "OnUpdate", {});
    if (selected_ < 0) return;
    Anything::MapOfAnythings select;
    select["Command"] = "Select";
    select["Row"] = grid_.GetRow(selected_);
    select["Column"] = 1L;
    ExecuteCallback(sampleGrid, "OnUpdate", select);
}

Anything SampleWindow::GetDragData(String const& element) const {
    if (element == "SelectedColour" || element == sampleGrid) return tree_.GetDragged(selected_);
    if (long const sample = SampleOfPatch(element); sample >= 0) return tree_.GetDragged(sample);
    if (!(element == "Spectra") && !(element == "LabChart")) return {};
    Anything::VectorOfAnythings files(1);
    files[0] = document_.GetPath().c_str();
    Anything::MapOfAnythings content;
    content["Picture"] = true;
    content["Files"] = Anything(files);
    return content;
}

void SampleWindow::TakeGridValue(String const& key, Anything const& value) {
    if (key == "SortOrder") grid_.Sort(value.GetString());
    if (!(key == "CurrentCell")) return;
    if (long const sample = grid_.GetSample(value.GetVectorOfAnythings()[0].GetLong()); sample >= 0)
        Select(sample);
}

} // namespace ColourDesk
