#include "inspection/PropertyInspector.h"

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"

namespace GUI {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

constexpr char const* componentName = "PropertyInspector";
constexpr char const* defaultPage = "PropertyInspectorDefault";

Utilities::ComponentCreatorSingleton<PropertyInspector> creator({componentName, "$Revision: 1.14 $", "GUI"});

/// Null for a name that nobody has registered, or of something else.
SmartPointer<PropertyInspectorImpl> MakePage(String const& name) {
    try {
        return Utilities::ResolveComponent<PropertyInspectorImpl>(name.GetStdString());
    } catch (...) {
        Diagnostics::DropException("PropertyInspector: page");
        return {};
    }
}

} // namespace

PropertyInspector::PropertyInspector() = default;

PropertyInspector::~PropertyInspector() {
    if (visible_) Hide();
}

bool PropertyInspector::PrepareForUnload() {
    if (visible_) Toggle();
    selectionService_ = nullptr;
    return true;
}

void PropertyInspector::Toggle() {
    if (visible_)
        Hide();
    else
        Show();
}

void PropertyInspector::Show() {
    visible_ = true;
    if (selectionService_.IsNull())
        selectionService_ = Utilities::ResolveComponent<SelectionServiceInterface>("SelectionService");
    try {
        OnSelectionChanged({});
    } catch (...) {
        // Half an inspector could neither be shown nor hidden.
        Hide();
        throw;
    }
    // What was shown may have hidden it again.
    if (visible_ && cookie_.Length() == 0)
        cookie_ = selectionService_->Advise(
            Topics::propertyInspector, Utilities::MakeCallback(this, &PropertyInspector::OnSelectionChanged));
}

void PropertyInspector::Hide() {
    visible_ = false;
    try {
        if (cookie_.Length() != 0) selectionService_->Unadvise(cookie_);
    } catch (...) {
        Diagnostics::DropException("PropertyInspector: subscription");
    }
    cookie_ = String();
    // The window's elements take their callbacks out of the page.
    SmartPointer<Dialog> const window(std::exchange(window_, {}));
    if (!window.IsNull()) window->Close(0);
    page_ = nullptr;
}

bool PropertyInspector::HasWindow() const {
    // It goes with the window that it floats over.
    return !window_.IsNull() && window_->HasWindow();
}

void PropertyInspector::OpenWindow(SmartPointer<PropertyInspectorImpl> const& page) {
    DescriptionTree const description = page->GetGUIDescription();
    auto const window = Utilities::ResolveComponent<Dialog>("Dialog");
    GUIElement* const main = Application::Instance().GetMainWindow();
    auto parent = main ? main->GetWindowID() : nullptr;
    if (parent.IsNull())
        parent = Utilities::ResolveComponent<PlatformIndependentWindowID>("PlatformIndependentWindowID");
    description_ = description;
    page_ = page;
    window_ = window;
    window->Initialize(*parent, description_, this, true);
}

long PropertyInspector::OnSelectionChanged(Anything const& /*topic*/) {
    auto* const selected = selectionService_->GetSelection(Topics::propertyInspector);
    auto const* const shown = dynamic_cast<GUIElement const*>(selected);
    // A click into the inspector is none on what it shows.
    if (shown && shown->GetDataSource() == this) return 0;
    if (!HasWindow()) {
        window_ = nullptr;
        page_ = nullptr;
    }
    auto* element = dynamic_cast<SupportsPropertyInspector*>(selected);
    String const wanted = element ? element->GetPropertyInspectorName() : String(defaultPage);
    if (page_.IsNull()) {
        auto const page = MakePage(wanted);
        if (page.IsNull()) return 0;
        OpenWindow(page);
    } else if (!(page_->GetName() == wanted)) {
        auto const page = MakePage(wanted);
        if (page.IsNull()) return 0;
        DescriptionTree const description = page->GetGUIDescription();
        // The former one may be what is being called.
        SmartPointer<PropertyInspectorImpl> const former(std::exchange(page_, page));
        description_ = description;
        window_->SetGUIDescriptionTree(description_);
    }
    // Making elements asks and tells others, who may have selected something else or closed the window.
    SmartPointer<PropertyInspectorImpl> const page(page_);
    element =
        dynamic_cast<SupportsPropertyInspector*>(selectionService_->GetSelection(Topics::propertyInspector));
    if (!page.IsNull() &&
        page->GetName() == (element ? element->GetPropertyInspectorName() : String(defaultPage)))
        page->Update(element);
    return 0;
}

long PropertyInspector::OnClose(Anything const& /*argument*/) {
    Toggle();
    return 0;
}

void PropertyInspector::SetValue(String const& element, String const& name, Anything const& value) {
    if (SmartPointer<PropertyInspectorImpl> const page(page_); !page.IsNull())
        page->SetValue(element, name, value);
}

Anything PropertyInspector::GetValue(String const& element, String const& name) {
    SmartPointer<PropertyInspectorImpl> const page(page_);
    return page.IsNull() ? Anything() : page->GetValue(element, name);
}

void PropertyInspector::SetCallback(String const& element, String const& name, Callback const& callback) {
    if (SmartPointer<PropertyInspectorImpl> const page(page_); !page.IsNull())
        page->SetCallback(element, name, callback);
}

Callback PropertyInspector::GetCallback(String const& element, String const& name) {
    if (element == componentName && name == Events::close)
        return Utilities::MakeCallback(this, &PropertyInspector::OnClose);
    SmartPointer<PropertyInspectorImpl> const page(page_);
    return page.IsNull() ? Callback() : page->GetCallback(element, name);
}

void PropertyInspector::RemoveAllCallbacks(String const& element) {
    if (SmartPointer<PropertyInspectorImpl> const page(page_); !page.IsNull())
        page->RemoveAllCallbacks(element);
}

} // namespace GUI
