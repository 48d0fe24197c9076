#include "Utilities/LanguageServiceInterface.h"

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "Utilities/TranslationService.h"

namespace Utilities {

namespace {

/// Texts are asked for with every paint, so the service isn't looked up by name each time.
TranslationService*& Living() {
    static TranslationService* service = nullptr;
    return service;
}

} // namespace

TranslationService::TranslationService() { Living() = this; }

TranslationService::~TranslationService() {
    if (Living() == this) Living() = nullptr;
}

namespace {

String Translate(TranslationService& service, String const& key) {
    if (!service.IsLoaded()) try {
            service.Load();
        } catch (...) {
            // One file that doesn't fit is no reason to do without the others.
            Diagnostics::DropException("LanguageServiceInterface: loading the languages");
        }
    return service.GetTranslation(key);
}

} // namespace

String LanguageServiceInterface::GetTranslation(String const& key) {
    try {
        if (TranslationService* const service = Living()) return Translate(*service, key);
        if (!NamingService::Instance()->IsRegistered("LanguageService")) return key;
        auto const service = ResolveComponent<TranslationService>("LanguageService");
        return service.IsNull() ? key : Translate(*service, key);
    } catch (...) {
        Diagnostics::DropException("LanguageServiceInterface::GetTranslation");
        return key;
    }
}

} // namespace Utilities
