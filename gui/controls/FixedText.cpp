#include "gui/controls/FixedText.h"

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "Utilities/TranslationService.h"

namespace GUI {

namespace {

/// None for a language that has no short forms, and where the component isn't available.
Utilities::SmartPointer<Utilities::TextAdapter> MakeAdapter(Utilities::String const& component) {
    if (component.Length() == 0) return {};
    try {
        auto const languages = Utilities::ResolveComponent<Utilities::TranslationService>("LanguageService");
        if (languages->GetLanguage().GetAsLower() == "japanese") return {};
        return Utilities::ResolveComponent<Utilities::TextAdapter>(component);
    } catch (...) {
        Diagnostics::DropException("FixedText: text adapter");
        return {};
    }
}

} // namespace

void FixedText::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                           DialogDataSource* dataSource) {
    adapterName_ = AttributeReader(description).Text(adaptText);
    adapter_ = MakeAdapter(adapterName_);
    GUIElement::Initialize(parent, description, dataSource);
    RegisterOnUpdate();
}

void FixedText::OnLanguageChanged() {
    adapter_ = MakeAdapter(adapterName_);
    GUIElement::OnLanguageChanged();
}

} // namespace GUI
