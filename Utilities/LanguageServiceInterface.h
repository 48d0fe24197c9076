#pragma once

#include "core/base/String.h"

namespace Utilities {

/// How elements translate. GUI thread only.
class LanguageServiceInterface {
public:
    /// What the singleton component "LanguageService" gives for the key (see `TranslationService`); the
    /// key itself where there is no such component.
    static String GetTranslation(String const& key);
};

} // namespace Utilities
