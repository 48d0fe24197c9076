#include "services/clipboard/CopyPasteHandler.h"

#include "Utilities/NamingService.h"
#include "core/base/Exceptions.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"

namespace GUI {

using Norvelian::Utilities::Exceptions::ResourceNotAvailableException;
using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

namespace {

constexpr char const* componentName = "CopyPasteHandler";

Utilities::ComponentCreatorNormal<CopyPasteHandler> const creator({componentName, "$Revision: 1.10 $",
                                                                   "GUI"});

} // namespace

CopyPasteHandler::CopyPasteHandler()
    : selection_(Utilities::ResolveComponent<SelectionServiceInterface>("SelectionService")) {
    Application::Instance().RegisterComponent(componentName, this);
}

CopyPasteHandler::~CopyPasteHandler() {
    Application& application = Application::Instance();
    if (application.GetRegisteredComponent(componentName) == this)
        application.UnregisterComponent(componentName);
}

SupportsCopyPaste& CopyPasteHandler::FindActive(String& element) {
    auto* const selected = dynamic_cast<GUIElement*>(selection_->GetSelection(Topics::propertyInspector));
    if (!selected) throw ResourceNotAvailableException("Selected element is not a GUIElement");
    element = selected->GetElementName();
    DialogDataSource* const source = selected->GetDataSource();
    if (!source)
        throw ResourceNotAvailableException("Selected GUIElement does not have a dialog handler attached");
    return source->GetCopyPasteHandler(element);
}

Anything CopyPasteHandler::GetValue(String const& element, String const& name) {
    if (!(name == Values::itemEnabled)) return {};
    String selected;
    SupportsCopyPaste& active = FindActive(selected);
    if (element == "Cut") return active.CanCut(selected);
    if (element == "Copy") return active.CanCopy(selected);
    if (element == "Paste") return active.CanPaste(selected);
    return element == "Undo" && active.CanUndo(selected);
}

Callback CopyPasteHandler::GetCallback(String const& element, String const& name) {
    if (!(name == Events::click)) return {};
    if (element == "Cut") return Utilities::MakeCallback(this, &CopyPasteHandler::OnCut);
    if (element == "Copy") return Utilities::MakeCallback(this, &CopyPasteHandler::OnCopy);
    if (element == "Paste") return Utilities::MakeCallback(this, &CopyPasteHandler::OnPaste);
    if (element == "Undo") return Utilities::MakeCallback(this, &CopyPasteHandler::OnUndo);
    return {};
}

long CopyPasteHandler::OnCut(Anything const& /*argument*/) {
    String element;
    FindActive(element).Cut(element);
    return 0;
}
long CopyPasteHandler::OnCopy(Anything const& /*argument*/) {
    String element;
    FindActive(element).Copy(element);
    return 0;
}
long CopyPasteHandler::OnPaste(Anything const& /*argument*/) {
    String element;
    FindActive(element).Paste(element);
    return 0;
}
long CopyPasteHandler::OnUndo(Anything const& /*argument*/) {
    String element;
    FindActive(element).Undo(element);
    return 0;
}

} // namespace GUI
