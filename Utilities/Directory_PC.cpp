#include "Utilities/Directory_PC.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace Utilities {

namespace fs = std::filesystem;

namespace {

/// 2 for the very text, 1 for one that differs in case or for the pattern "*", 0 for another.
int Match(String const& wanted, std::string const& found) {
    if (wanted == "*") return 1;
    if (wanted == String(found)) return 2;
    return wanted.GetAsLower() == String(found).GetAsLower() ? 1 : 0;
}

/// The paths in a directory to which `match` gives more than 0, those with the highest number first.
template <class MatchEntry> std::vector<std::string> Matching(String const& directory, MatchEntry match) {
    std::vector<std::pair<int, std::string>> found;
    std::error_code failure;
    fs::directory_iterator entry(directory.GetStdString(), failure);
    while (!failure && entry != fs::directory_iterator()) {
        if (int const how = match(*entry); how > 0) found.emplace_back(-how, entry->path().string());
        entry.increment(failure);
    }
    std::sort(found.begin(), found.end());
    std::vector<std::string> paths;
    paths.reserve(found.size());
    for (auto& [how, path] : found) paths.push_back(std::move(path));
    return paths;
}

} // namespace

Directory_PC::Directory_PC(String const& path) : path_(ConvSeperatorDependend(path)) {
    std::string trimmed = path_.GetStdString();
    while (trimmed.size() > 1 && trimmed.back() == '/') trimmed.pop_back();
    path_ = trimmed;
}

Vector<SmartPointer<Directory>> Directory_PC::GetSubDirectories(String const& name) const {
    auto const paths = Matching(path_, [&](fs::directory_entry const& entry) {
        std::error_code failure;
        int const how = Match(name, entry.path().filename().string());
        return how > 0 && entry.is_directory(failure) ? how : 0;
    });
    Vector<SmartPointer<Directory>> directories(static_cast<std::uint32_t>(paths.size()));
    std::transform(paths.begin(), paths.end(), directories.begin(), [](std::string const& path) {
        return SmartPointer<Directory>(MakeSmart<Directory_PC>(path));
    });
    return directories;
}

Vector<File> Directory_PC::GetFiles(String const& name, String const& extension) const {
    auto const paths = Matching(path_, [&](fs::directory_entry const& entry) {
        std::string const file = entry.path().filename().string();
        auto const point = std::min(file.rfind('.'), file.size());
        int const nameMatch = Match(name, file.substr(0, point));
        int const extensionMatch = Match(extension, file.substr(std::min(point + 1, file.size())));
        std::error_code failure;
        bool const fits = nameMatch > 0 && extensionMatch > 0 && entry.is_regular_file(failure);
        return fits ? nameMatch + extensionMatch : 0;
    });
    Vector<File> files(static_cast<std::uint32_t>(paths.size()));
    std::transform(paths.begin(), paths.end(), files.begin(),
                   [](std::string const& path) { return File(path); });
    return files;
}

String Directory_PC::ConvSeperatorDependend(String const& path) {
    std::string converted = path.GetStdString();
    std::replace(converted.begin(), converted.end(), '\\', '/');
    return {std::move(converted)};
}

} // namespace Utilities
