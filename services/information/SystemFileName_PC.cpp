#include "core/creators/ComponentCreator.h"
#include "services/information/InformationServices_PC.h"

#include <filesystem>
#include <sys/utsname.h>
#include <system_error>

namespace InformationServices {

using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<SystemFileNameImplementation_PC> const
    creator({"SystemFileNameImplementation", "$Revision: 1.3 $", "InformationServices"});

std::filesystem::path LibraryDirectory() {
    utsname system{};
    ::uname(&system);
    std::string const multiarch = std::string("/usr/lib/") + system.machine + "-linux-gnu";
    for (char const* const path : {multiarch.c_str(), "/usr/lib64"})
        if (std::error_code failure; std::filesystem::is_directory(path, failure)) return path;
    return "/usr/lib";
}

std::string FindDriver() {
    utsname system{};
    ::uname(&system);
    std::string const modules = std::string("/lib/modules/") + system.release;
    for (std::string const& path : {modules + "/updates/dkms/dorvex.ko", modules + "/extra/dorvex.ko",
                                    std::string("/usr/lib/udev/rules.d/70-dorvex.rules"),
                                    std::string("/etc/udev/rules.d/70-dorvex.rules")})
        if (std::error_code failure; std::filesystem::exists(path, failure)) return path;
    return {};
}

} // namespace

String SystemFileNameImplementation_PC::GetFileName(String const& key) {
    if (key == "WindowsFolder") return "/usr";
    if (key == "SystemFolder") return LibraryDirectory().string();
    if (key == "DorvexDriver") return FindDriver();
    return {};
}

} // namespace InformationServices
