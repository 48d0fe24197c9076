#pragma once

#include "core/base/String.h"

namespace Utilities {

/// How elements translate. GUI thread only.
class LanguageServiceInterface {
public:
    /// What the singleton component "LanguageService" gives for the key (see `TranslationService`); the
    /// key itself where there is no such component. That the languages can't be loaded is no reason for
    /// an element not to appear: it goes to the diagnostics sink, and a host that wants to tell its user
    /// calls the service's `Load` at its start.
    static String GetTranslation(String const& key);
};

} // namespace Utilities
