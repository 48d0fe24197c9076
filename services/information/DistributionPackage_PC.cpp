#include "services/information/DistributionPackage_PC.h"

#include "Utilities/WholeFile.h"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

namespace InformationServices {

namespace {

constexpr std::uint64_t largestFile = 64'000'000;

std::string Read(std::string const& path) { return Utilities::ReadWholeFile(path, largestFile).contents; }

bool HasLine(std::string_view text, std::string_view line) {
    for (std::size_t at = text.find(line); at != std::string_view::npos; at = text.find(line, at + 1)) {
        std::size_t const end = at + line.size();
        if ((at == 0 || text[at - 1] == '\n') && (end == text.size() || text[end] == '\n')) return true;
    }
    return false;
}

/// Systems with one tree of programs have lists from before: /lib/x is /usr/lib/x.
std::vector<std::string> NamesOf(std::string const& path) {
    constexpr std::string_view prefix = "/usr";
    return path.starts_with("/usr/") ? std::vector{path, path.substr(prefix.size())}
                                     : std::vector{path, std::string(prefix) + path};
}

std::string FieldOf(std::string_view entry, std::string_view key) {
    std::string const start = '\n' + std::string(key) + ": ";
    std::size_t const at = entry.find(start);
    if (at == std::string_view::npos) return {};
    std::string_view const value = entry.substr(at + start.size());
    return std::string(value.substr(0, value.find('\n')));
}

/// The entry of the package in the list of what is installed, from the line break before its second line.
std::string_view FindEntry(std::string_view status, std::string const& package) {
    std::string const head = "Package: " + package + '\n';
    for (std::size_t at = status.find(head); at != std::string_view::npos; at = status.find(head, at + 1)) {
        if (at != 0 && status[at - 1] != '\n') continue;
        std::string_view const entry = status.substr(at + head.size() - 1);
        return entry.substr(0, entry.find("\n\n"));
    }
    return {};
}

std::string FindPackage(std::string const& path, std::string const& root) {
    std::error_code failure;
    for (auto const& list : std::filesystem::directory_iterator(root + "/info", failure)) {
        if (list.path().extension() != ".list") continue;
        std::string const files = Read(list.path().string());
        for (std::string const& name : NamesOf(path)) {
            if (!HasLine(files, name)) continue;
            // The name may have its processor behind a colon.
            std::string const package = list.path().stem().string();
            return package.substr(0, package.find(':'));
        }
    }
    return {};
}

} // namespace

std::optional<DistributionPackage> DistributionPackage::FindOwner(std::string const& path,
                                                                  std::string const& root) {
    std::string const name = FindPackage(path, root);
    if (name.empty()) return {};
    std::string const status = Read(root + "/status");
    std::string_view const entry = FindEntry(status, name);
    return DistributionPackage{name, FieldOf(entry, "Version"), FieldOf(entry, "Maintainer"),
                               FieldOf(entry, "Description")};
}

} // namespace InformationServices
