#include "services/ImageDirectory.h"

#include "Utilities/Directory.h"

#include <algorithm>

namespace GUI {

namespace fs = std::filesystem;

using Utilities::Directory;
using Utilities::File;
using Utilities::String;

namespace {

/// File systems note changes in steps of up to this length.
constexpr std::chrono::seconds coarsestClock(2);

} // namespace

bool ImageDirectory::Refresh() {
    std::error_code failure;
    auto const changed = fs::last_write_time(path_, failure);
    if (listed_ && !failure && changed == changed_) return true;
    files_.clear();
    listed_ = false;
    if (failure) return false;
    auto const now = fs::file_time_type::clock::now();
    for (File const& file : Directory::NewInstance(Directory::anyDirectory, path_)->GetFiles("*", "*")) {
        std::string const stem = fs::path(file.GetName().GetStdString()).stem().string();
        files_[String(stem).GetAsLower().GetStdString()].push_back({stem, file.GetPath()});
    }
    changed_ = changed;
    listed_ = now - changed > coarsestClock;
    return true;
}

std::optional<File> ImageDirectory::Find(String const& name) const {
    auto const found = files_.find(name.GetAsLower().GetStdString());
    if (found == files_.end()) return std::nullopt;
    // A file of exactly that name goes before one that differs in case.
    auto const& entries = found->second;
    auto const exact = std::find_if(entries.begin(), entries.end(),
                                    [&](Entry const& entry) { return entry.name == name.GetStdString(); });
    return File(exact == entries.end() ? entries.front().path : exact->path);
}

} // namespace GUI
