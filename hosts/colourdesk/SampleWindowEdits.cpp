// What the user changes, and takes to other programs.
#include "Utilities/NamingService.h"
#include "gui/elements/Pane.h"
#include "gui/elements/PropertyContentHelper.h"
#include "gui/elements/SelectionServiceInterface.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/ClipboardService.h"
#include "gui/elements/drawing/NumberFormat.h"
#include "hosts/colourdesk/SampleWindow.h"

#include <utility>

namespace ColourDesk {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr char const* curves = "XYGraph";
constexpr char const* labChart = "LabChart";

} // namespace

void SampleWindow::DataChanged(Anything const& /*sampleKey*/, Anything const& /*what*/) {
    // The key says which sample its element stands for now, which may be another than was changed.
    for (long sample = 0; sample < Count(); ++sample)
        if (edits_.Take(sample)) OnTextsChanged(sample);
}

bool SampleWindow::IsLocked(Anything const& /*sampleKey*/, Anything const& /*what*/) {
    return document_.IsWriteProtected();
}

void SampleWindow::OnTextsChanged(long sample) {
    if (pages_.IsShown(sample)) ExecuteCallback(PatchName(sample).c_str(), GUI::Events::update, {});
    UpdateDetails();
    UpdateCharts();
    UpdateGrid();
    ExecuteCallback(sampleTree, GUI::Events::update, {});
}

bool SampleWindow::CanUndo(String const& /*element*/) { return edits_.CanUndo(); }

void SampleWindow::Undo(String const& /*element*/) {
    auto const sample = edits_.Undo();
    if (!sample) return;
    OnTextsChanged(*sample);
    UpdateInspector();
}

void SampleWindow::UpdateInspector() {
    if (Utilities::NamingService::Instance()->IsRegistered("SelectionService"))
        Utilities::ResolveComponent<GUI::SelectionServiceInterface>("SelectionService")
            ->Notify(GUI::Topics::propertyInspector);
}

GUI::GUIElement* SampleWindow::FindCopied(String const& element) {
    auto const selection = Utilities::ResolveComponent<GUI::SelectionServiceInterface>("SelectionService");
    auto* found = dynamic_cast<GUI::GUIElement*>(selection->GetSelection(GUI::Topics::propertyInspector));
    if (!found || !(found->GetElementName() == element)) return nullptr;
    // A chart's axes and titles belong to what is in it.
    auto* const chart = dynamic_cast<GUI::Pane*>(found->GetParentElement());
    return chart && dynamic_cast<GUI::DialogDataSource*>(chart) ? chart : found;
}

Anything SampleWindow::GetProperties(String const& element) const {
    auto const helper = Utilities::ResolveComponent<GUI::PropertyContentHelper>("PropertyContentHelper");
    String const root = element == curves     ? "Reflectance factor over wavelength in nm"
                        : element == labChart ? "a* to the right, b* upward"
                                              : "Samples";
    helper->AddString(root + "/File", document_.GetFileName());
    helper->AddLong(root + "/Samples", Count());
    if (selected_ < 0) return helper->GetContent();
    ShownSample const& shown = At(selected_);
    String const sample = root + "/Sample";
    helper->AddString(sample, shown.name);
    for (auto const& [name, value] :
         {std::pair{"/L*", shown.lab[0]}, {"/a*", shown.lab[1]}, {"/b*", shown.lab[2]}})
        helper->AddString(sample + name, GUI::NumberFormat().Write(value));
    helper->AddString(sample + "/Condition", shown.condition);
    return helper->GetContent();
}

bool SampleWindow::CanCopy(String const& element) { return FindCopied(element) != nullptr; }

void SampleWindow::Copy(String const& element) {
    GUI::GUIElement* const copied = FindCopied(element);
    if (!copied) return;
    auto const source = Utilities::ResolveComponent<GUI::DataSource>("DataSource");
    if (source->AddElement(*copied)) source->SetClipboard();
}

} // namespace ColourDesk
