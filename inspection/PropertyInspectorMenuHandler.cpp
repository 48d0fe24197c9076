#include "Utilities/NamingService.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/DialogHandler.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"
#include "inspection/PropertyInspector.h"

namespace GUI {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

namespace {

constexpr char const* componentName = "PropertyInspectorMenuHandler";
constexpr char const* inspectorName = "PropertyInspector";

/// Puts the inspector on a menu: the handler of an item "PropertyInspector", which shows and hides it. Enters
/// itself at the application under its component's name.
class PtyInspectorMenuHandler : public DialogHandler {
public:
    PtyInspectorMenuHandler() { Application::Instance().RegisterComponent(componentName, this); }
    PtyInspectorMenuHandler(PtyInspectorMenuHandler const&) = delete;
    PtyInspectorMenuHandler& operator=(PtyInspectorMenuHandler const&) = delete;
    ~PtyInspectorMenuHandler() override {
        Application& application = Application::Instance();
        if (application.GetRegisteredComponent(componentName) == this)
            application.UnregisterComponent(componentName);
    }

    Diagnostics::String GetValueString() override { return "PtyInspectorMenuHandler"; }
    Anything GetValue(String const& /*element*/, String const& name) override {
        return name == Values::itemEnabled ? Anything(true) : Anything();
    }
    Callback GetCallback(String const& element, String const& name) override {
        if (element == inspectorName && name == Events::click)
            return Utilities::MakeCallback(this, &PtyInspectorMenuHandler::OnInspector);
        return {};
    }

private:
    long OnInspector(Anything const& /*argument*/) {
        Utilities::ResolveComponent<PropertyInspector>(inspectorName)->Toggle();
        return 0;
    }
};

Utilities::ComponentCreatorNormal<PtyInspectorMenuHandler> const creator({componentName, "$Revision: 1.7 $",
                                                                          "GUI"});

} // namespace

} // namespace GUI
