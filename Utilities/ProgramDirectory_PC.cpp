#include "Utilities/ProgramDirectory.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <pwd.h>
#include <string_view>
#include <unistd.h>

namespace Utilities {

namespace fs = std::filesystem;

std::string GetExecutablePath() {
    std::error_code failure;
    std::string path = fs::read_symlink("/proc/self/exe", failure).string();
    // What the kernel appends once the file was replaced, by an update of the running program say.
    constexpr std::string_view mark = " (deleted)";
    if (path.ends_with(mark) && !fs::exists(path, failure)) path.resize(path.size() - mark.size());
    return path;
}

std::string GetExecutableStem() {
    std::string const name = fs::path(GetExecutablePath()).filename().string();
    return name.substr(0, name.find('.'));
}

std::string GetProgramDirectory() {
    fs::path const directory = fs::path(GetExecutablePath()).parent_path();
    std::error_code failure;
    if (fs::is_directory(directory / "images", failure) || fs::is_directory(directory / "Languages", failure))
        return directory.string();
    return (directory.parent_path() / "share" / GetExecutableStem()).string();
}

std::string GetConfigurationDirectory() {
    char const* const configured = std::getenv("XDG_CONFIG_HOME");
    if (configured && *configured == '/') return configured;
    char const* home = std::getenv("HOME");
    if (!home || *home != '/') {
        auto const* const user = ::getpwuid(::geteuid());
        home = user ? user->pw_dir : nullptr;
    }
    return home && *home == '/' ? std::string(home) + "/.config" : std::string();
}

std::string GetModulePath(std::string const& name) {
    Dl_info library{};
    if (dladdr(reinterpret_cast<void const*>(&GetModulePath), &library) == 0 || !library.dli_fname) return {};
    std::error_code failure;
    fs::path const path = fs::canonical(library.dli_fname, failure);
    // What is left would be a path into whatever directory is the current one.
    if (failure) return {};
    return (path.parent_path() / "norvelian" / (name + ".so")).string();
}

} // namespace Utilities
