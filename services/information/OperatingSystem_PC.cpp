#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/WholeFile.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/application/Application.h"
#include "services/IniText.h"
#include "services/information/InformationServices_PC.h"

#include <QColorSpace>
#include <QGuiApplication>
#include <QScreen>
#include <cstdlib>
#include <sys/utsname.h>

namespace InformationServices {

using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<OperatingSystemInformationImplementation_PC> const
    creator({"OperatingSystemInformationImplementation", "$Revision: 1.2 $", "InformationServices"});
constexpr std::uint64_t largestFile = 65536;

std::string FirstLineOf(std::string const& path) {
    std::string const text = Utilities::ReadWholeFile(path, largestFile).contents;
    return text.substr(0, text.find('\n'));
}

/// A value of os-release, without its quotes.
std::string ReleaseValue(std::string_view text, std::string_view key) {
    // The file has no sections.
    std::string const asSection = "[Release]\n" + std::string(text);
    auto const value = Utilities::IniText::FindValue(asSection, "Release", key);
    return value ? std::string(*value) : std::string();
}

std::string ReadRelease() {
    for (char const* const path : {"/etc/os-release", "/usr/lib/os-release"})
        if (auto file = Utilities::ReadWholeFile(path, largestFile); file.state == Utilities::FileState::Read)
            return file.contents;
    return {};
}

std::string Environment(char const* name) {
    char const* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): GUI thread
    return value ? value : "";
}

std::string DescribeScreen() {
    QScreen const* const screen = QGuiApplication::primaryScreen();
    if (!screen) return {};
    QSize const size = screen->geometry().size();
    return std::to_string(size.width()) + " x " + std::to_string(size.height()) + ", scale " +
           String(screen->devicePixelRatio(), 2, '.').GetStdString();
}

std::string DescribeProfile() {
    auto const* const platform = GUI::Application::Instance().FindImplementation();
    std::string const profile = platform ? platform->GetDisplayProfile() : std::string();
    if (profile.empty()) return {};
    auto const bytes = QByteArray::fromRawData(profile.data(), static_cast<qsizetype>(profile.size()));
    std::string const name = QColorSpace::fromIccProfile(bytes).description().toStdString();
    return name.empty() ? "without a name" : name;
}

} // namespace

Information OperatingSystemInformationImplementation_PC::GetInformation() {
    auto information = Utilities::MakeSmart<Utilities::Map<String, String>>();
    auto const set = [&information](char const* key, std::string const& value) {
        if (!value.empty()) (*information)[String(key)] = String(value);
    };
    String const unknown = Utilities::LanguageServiceInterface::GetTranslation("Unknown");
    std::string const release = ReadRelease();
    utsname system{};
    bool const isKnown = ::uname(&system) == 0;
    for (char const* const key : {"OS", "ServicePack", "Build"}) set(key, unknown.GetStdString());
    set("OS", ReleaseValue(release, "PRETTY_NAME"));
    set("ServicePack", ReleaseValue(release, "VERSION_ID"));
    if (ReleaseValue(release, "ID") == "debian") set("ServicePack", FirstLineOf("/etc/debian_version"));
    if (isKnown) set("Build", system.release);
    if (isKnown) set("Machine", system.machine);
    set("SessionType", Environment("XDG_SESSION_TYPE"));
    set("Desktop", Environment("XDG_CURRENT_DESKTOP"));
    if (qApp)
        set("Toolkit",
            std::string("Qt ") + qVersion() + " (" + QGuiApplication::platformName().toStdString() + ")");
    if (qApp) set("Screen", DescribeScreen());
    set("DisplayProfile", DescribeProfile());
    return information;
}

String OperatingSystemInformationImplementation_PC::GetDescription(bool allKeys) {
    auto const information = GetInformation();
    if (allKeys) return String(GetValueString().GetCharPointer()) + DescribePairs(information);
    return (*information)["OS"] + " (Build" + (*information)["Build"] + ") / " +
           (*information)["ServicePack"];
}

} // namespace InformationServices
