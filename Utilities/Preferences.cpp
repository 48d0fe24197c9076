#include "Utilities/Preferences.h"

namespace Utilities {

namespace {

String& ApplicationName() {
    static String name;
    return name;
}

} // namespace

void Preferences::SetApplicationName(String const& name) { ApplicationName() = name; }
String Preferences::GetApplicationName() { return ApplicationName(); }

} // namespace Utilities
