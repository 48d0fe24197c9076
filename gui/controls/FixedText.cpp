#include "gui/controls/FixedText.h"

#include "Diagnostics/Sink.h"
#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/NamingService.h"
#include "Utilities/TranslationService.h"

#include <limits>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;

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
    Utilities::String const quantity = AttributeReader(description).Text(numberFormat);
    format_ = NumberFormat::Find(quantity);
    if (quantity.Length() != 0 && !format_)
        throw OutOfRangeException("There is no number format \"" + quantity.GetStdString() + "\"");
    GUIElement::Initialize(parent, description, dataSource);
    RegisterOnUpdate();
}

Utilities::String FixedText::GetShownText(Utilities::String const& text) const {
    if (!format_) return Utilities::LanguageServiceInterface::GetTranslation(text);
    if (text.Length() == 0) return format_->Write(std::numeric_limits<double>::quiet_NaN());
    try {
        return format_->Write(text.GetDouble());
    } catch (OutOfRangeException const&) {
        return text;
    }
}

void FixedText::OnLanguageChanged() {
    adapter_ = MakeAdapter(adapterName_);
    GUIElement::OnLanguageChanged();
}

} // namespace GUI
