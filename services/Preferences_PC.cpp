#include "services/Preferences_PC.h"

#include "Diagnostics/Sink.h"
#include "Utilities/AtomicFile.h"
#include "Utilities/Limits.h"
#include "Utilities/Mutex.h"
#include "Utilities/ProgramDirectory.h"
#include "Utilities/WholeFile.h"
#include "core/base/Exceptions.h"
#include "core/creators/ComponentCreator.h"
#include "services/IniText.h"

#include <filesystem>

namespace Utilities {

using Norvelian::Utilities::Exceptions::InvalidArgumentException;
using Norvelian::Utilities::Exceptions::ResourceException;

namespace {

ComponentCreatorSingleton<Preferences_PC> creator({"Preferences", "$Revision: 1.4 $", "Utilities"});

constexpr long longestValue = 1023;
constexpr long lockTimeoutMilliseconds = 3000;

/// Asked for with every read, and the system takes longer to tell than to read the file.
std::string const& ExecutableStem() {
    static std::string const stem = GetExecutableStem();
    return stem;
}

std::string PathFor(std::string const& name) {
    std::string const directory = GetConfigurationDirectory();
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
    // setting that may overtake another's is better than one that is lost.
    Mutex changing("Preferences");
    MutexLock const lock(changing, lockTimeoutMilliseconds);
    if (!lock.IsHeld())
        Diagnostics::Report("Preferences", (path + ": another program has kept the settings locked; they are "
                                                   "changed all the same")
                                               .c_str());
    std::filesystem::create_directories(path.substr(0, path.rfind('/')));
    auto const [state, text] = ReadWholeFile(path, Limits::Get().settingsBytes);
    if (state == FileState::Unreadable)
        throw ResourceException(path + ": can't be read, and so isn't replaced");
    auto const changed =
        IniText::WithValue(text, section.GetStdString(), key.GetStdString(), value.GetStdString());
    if (!changed)
        throw InvalidArgumentException(path + ": no file of settings can hold the key \"" +
                                       key.GetStdString() + "\" of the section \"" + section.GetStdString() +
                                       '"');
    if (*changed != text) WriteFileAtomically(path, *changed, Durability::Whole);
}

} // namespace

String Preferences_PC::GetPathToRead() { return PathFor(ExecutableStem()); }
String Preferences_PC::GetPathToWrite() { return PathToWrite(); }

String Preferences_PC::GetValue(String const& section, String const& key, String const& defaultValue) {
    try {
        auto const file = ReadWholeFile(PathFor(ExecutableStem()), Limits::Get().settingsBytes);
        auto const value = IniText::FindValue(file.contents, section.GetStdString(), key.GetStdString());
        if (value) return String(value->substr(0, longestValue));
    } catch (...) {
        Diagnostics::DropException("Preferences::GetValue");
    }
    return defaultValue;
}

void Preferences_PC::SetValue(String const& section, String const& key, String const& value) {
    try {
        StoreValue(section, key, value);
    } catch (...) {
        Diagnostics::DropException("Preferences::SetValue");
    }
}

void Preferences_PC::StoreValue(String const& section, String const& key, String const& value) {
    std::string const path = PathToWrite();
    if (path.empty())
        throw ResourceException(GetConfigurationDirectory().empty()
                                    ? "There is no place for settings: the user has no home folder"
                                    : "\"" + GetApplicationName().GetStdString() +
                                          "\" can't be a file's name");
    try {
        Write(path, section, key, value);
    } catch (std::filesystem::filesystem_error const& failure) {
        throw ResourceException(path + ": can't be written: " + failure.code().message());
    }
}

} // namespace Utilities
