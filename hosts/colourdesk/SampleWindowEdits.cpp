// What the user changes, and takes to other programs.
#include "Utilities/NamingService.h"
#include "core/base/Exceptions.h"
#include "gui/elements/Pane.h"
#include "gui/elements/SelectionServiceInterface.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/ClipboardService.h"
#include "hosts/colourdesk/SampleWindow.h"

namespace ColourDesk {

using Utilities::Anything;
using Utilities::String;

void SampleWindow::DataChanged(Anything const& sampleKey, Anything const& /*what*/) {
    auto const changed = GetSample(sampleKey);
    if (changed.IsNull()) return;
    for (long sample = 0; sample < Count(); ++sample)
        if (At(sample).sample.Get() == changed.Get() && edits_.Take(sample)) OnTextsChanged(sample);
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
    // The inspector shows it too.
    Utilities::ResolveComponent<GUI::SelectionServiceInterface>("SelectionService")
        ->Notify(GUI::Topics::propertyInspector);
}

GUI::GUIElement* SampleWindow::FindCopied(String const& element) const {
    GUI::GUIElement const* const root = GetDialogRootElement();
    if (!root) return nullptr;
    try {
        GUI::GUIElement& found = root->FindElement(element);
        return dynamic_cast<GUI::Pane*>(&found);
    } catch (Norvelian::Utilities::Exceptions::TraceableException const&) {
        return nullptr;
    }
}

bool SampleWindow::CanCopy(String const& element) { return FindCopied(element) != nullptr; }

void SampleWindow::Copy(String const& element) {
    GUI::GUIElement* const copied = FindCopied(element);
    if (!copied) return;
    auto const source = Utilities::ResolveComponent<GUI::DataSource>("DataSource");
    if (source->AddElement(*copied)) source->SetClipboard();
}

} // namespace ColourDesk
