#include "services/Preferences_PC.h"

#include "Diagnostics/Sink.h"
#include "Utilities/AtomicFile.h"
#include "Utilities/Mutex.h"
#include "Utilities/ProgramDirectory.h"
#include "core/creators/ComponentCreator.h"
#include "services/IniText.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Utilities {

namespace {

ComponentCreatorSingleton<Preferences_PC> const creator({"Preferences", "$Revision: 1.4 $", "Utilities"});

constexpr long longestValue = 1023;
constexpr off_t largestFile = off_t{16} << 20U;
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

class Descriptor {
public:
    explicit Descriptor(std::string const& path)
        // A pipe under that name must not hold the program up.
        : number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    int Get() const { return number_; }

private:
    int number_;
};

/// The whole file, nothing if it can't be read; a file that doesn't exist is empty.
std::optional<std::string> ReadFile(std::string const& path) {
    Descriptor const file(path);
    if (file.Get() < 0) return errno == ENOENT ? std::optional<std::string>(std::in_place) : std::nullopt;
    struct stat information {};
    if (::fstat(file.Get(), &information) != 0 || !S_ISREG(information.st_mode) ||
        information.st_size > largestFile)
        return std::nullopt;
    std::string text(static_cast<std::size_t>(information.st_size), '\0');
    std::size_t filled = 0;
    while (filled < text.size()) {
        ssize_t const count = ::read(file.Get(), text.data() + filled, text.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        if (count == 0) break;
        filled += static_cast<std::size_t>(count);
    }
    text.resize(filled);
    return text;
}

void Write(std::string const& path, String const& section, String const& key, String const& value) {
    // What another program adds between reading and writing must not be lost. If the holder hangs, a
    // setting that may overtake another's is better than one that is lost. The mutex goes free with
    // its object.
    Mutex changing("Preferences");
    changing.Lock(lockTimeoutMilliseconds);
    std::filesystem::create_directories(path.substr(0, path.rfind('/')));
    auto const text = ReadFile(path);
    auto const changed =
        text ? IniText::WithValue(*text, section.GetStdString(), key.GetStdString(), value.GetStdString())
             : std::nullopt;
    if (!changed)
        Diagnostics::Report("Preferences::SetValue", "file unreadable, or section or key can't be written");
    else if (*changed != *text)
        WriteFileAtomically(path, *changed, Durability::ProcessDeath);
}

} // namespace

String Preferences_PC::GetPathToRead() { return PathFor(ExecutableStem()); }
String Preferences_PC::GetPathToWrite() { return PathToWrite(); }

String Preferences_PC::GetValue(String const& section, String const& key, String const& defaultValue) {
    try {
        auto const text = ReadFile(PathFor(ExecutableStem()));
        auto const value =
            text ? IniText::FindValue(*text, section.GetStdString(), key.GetStdString()) : std::nullopt;
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
