#pragma once

#include "core/base/String.h"

namespace Utilities {

/// The language that the program was started with, for libraries that choose texts of their own and
/// don't know the language service. Set once, by that service; empty before. GUI thread only.
class CurrentLanguage {
public:
    static void SetLanguage(String const& name);
    static String GetLanguage();
};

} // namespace Utilities
