#include "services/Preferences_PC.h"

#include "Diagnostics/Sink.h"
#include "Utilities/AtomicFile.h"
#include "Utilities/Mutex.h"
#include "Utilities/ProgramDirectory.h"
#include "Utilities/WholeFile.h"
#include "core/creators/ComponentCreator.h"
#include "services/IniText.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <pwd.h>
#include <unistd.h>

namespace Utilities {

namespace {

ComponentCreatorSingleton<Preferences_PC> creator({"Preferences", "$Revision: 1.4 $", "Utilities"});

constexpr long longestValue = 1023;
constexpr std::uint64_t largestFile = 16U << 20U;
constexpr long lockTimeoutMilliseconds = 5000;

/// Asked for with every read, and the system takes longer to tell than to read the file.
std::string const& ExecutableStem() {
    static std::string const stem = GetExecutableStem();
    return stem;
}

std::string ConfigurationDirectory() {
    char const* const configured = std::getenv("XDG_CONFIG_HOME");
    if (configured && *configured == '/') return configured;
    char const* home = std::getenv("HOME");
    if (!home || *home != '/') {
        auto const* const user = ::getpwuid(::geteuid());
        home = user ? user->pw_dir : nullptr;
    }
    return home && *home == '/' ? std::string(home) + "/.config" : std::string();
}

std::string PathFor(std::string const& name) {
    std::string const directory = ConfigurationDirectory();
    // The name is a file's name, never a path out of the directory.
    if (directory.empty() || name.find('/') != std::string::npos) return {};
    return directory + '/' + name + ".ini";
}

std::string PathToWrite() {
    std::string const name = Preferences::GetApplicationName();
    return PathFor(name.empty() ? ExecutableStem() : name);
}

void Write(std::string const& path, String const& section, String const& key, String const& value) {
    // What another program adds between reading and writing must not be lost. If the holder hangs, a
    // setting that may overtake another's is better than one that is lost. The mutex goes free with
    // its object.
    Mutex changing("Preferences");
    changing.Lock(lockTimeoutMilliseconds);
    std::filesystem::create_directories(path.substr(0, path.rfind('/')));
    auto const [state, text] = ReadWholeFile(path, largestFile);
    // What can't be read must not be replaced.
    auto const changed =
        state == FileState::Unreadable
            ? std::nullopt
            : IniText::WithValue(text, section.GetStdString(), key.GetStdString(), value.GetStdString());
    if (!changed)
        Diagnostics::Report("Preferences::SetValue", "file unreadable, or section or key can't be written");
    else if (*changed != text)
        WriteFileAtomically(path, *changed, Durability::ProcessDeath);
}

} // namespace

String Preferences_PC::GetPathToRead() { return PathFor(ExecutableStem()); }
String Preferences_PC::GetPathToWrite() { return PathToWrite(); }

String Preferences_PC::GetValue(String const& section, String const& key, String const& defaultValue) {
    try {
        auto const file = ReadWholeFile(PathFor(ExecutableStem()), largestFile);
        auto const value = IniText::FindValue(file.contents, section.GetStdString(), key.GetStdString());
        if (value) return String(value->substr(0, longestValue));
    } catch (...) {
        Diagnostics::DropException("Preferences::GetValue");
    }
    return defaultValue;
}

void Preferences_PC::SetValue(String const& section, String const& key, String const& value) {
    try {
        std::string const path = PathToWrite();
        if (!path.empty()) Write(path, section, key, value);
    } catch (...) {
        Diagnostics::DropException("Preferences::SetValue");
    }
}

} // namespace Utilities
