#include "Utilities/CurrentLanguage.h"

namespace Utilities {

namespace {

String& Current() {
    static String name;
    return name;
}

} // namespace

void CurrentLanguage::SetLanguage(String const& name) { Current() = name; }
String CurrentLanguage::GetLanguage() { return Current(); }

} // namespace Utilities
