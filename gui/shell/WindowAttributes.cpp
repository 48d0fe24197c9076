#include "gui/shell/WindowAttributes.h"

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"

#include <algorithm>

namespace GUI {

using Utilities::Preferences;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

constexpr char const* section = "Windows";
/// Stands for a place that was never saved.
constexpr char const* unsaved = "XXYY";

SmartPointer<Preferences> FindPreferences() {
    if (!Utilities::NamingService::Instance()->IsRegistered("Preferences")) return {};
    return Utilities::ResolveComponent<Preferences>("Preferences");
}

} // namespace

std::optional<WindowPlace> FindSavedPlace(String const& windowName) {
    auto const preferences = FindPreferences();
    if (preferences.IsNull()) return {};
    String const value = preferences->GetValue(section, windowName, unsaved);
    if (value == unsaved || value.GetTokenCount(',') < 2) return {};
    try {
        return WindowPlace{value.GetToken(1, ',').GetShort(), value.GetToken(0, ',').GetShort()};
    } catch (Norvelian::Utilities::Exceptions::OutOfRangeException const&) {
        // Someone edited the file; the window opens where it would without one.
        Diagnostics::DropException("Window: saved place");
        return {};
    }
}

void SavePlace(String const& windowName, long x, long y) {
    auto const preferences = FindPreferences();
    if (preferences.IsNull()) return;
    preferences->SetValue(section, windowName, String(std::max(y, 0L)) + "," + String(std::max(x, 0L)));
}

} // namespace GUI
