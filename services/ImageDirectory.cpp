#include "services/ImageDirectory.h"

#include "Utilities/Directory.h"

namespace GUI {

namespace fs = std::filesystem;

using Utilities::Directory;
using Utilities::File;
using Utilities::String;

namespace {

/// File systems note changes in steps of up to this length.
constexpr std::chrono::seconds coarsestClock(2);

std::string Stem(File const& file) { return fs::path(file.GetName().GetStdString()).stem().string(); }

} // namespace

bool ImageDirectory::Exists() const {
    std::error_code failure;
    return fs::is_directory(path_, failure);
}

void ImageDirectory::Refresh() {
    std::error_code failure;
    auto const changed = fs::last_write_time(path_, failure);
    if (listed_ && !failure && changed == changed_) return;
    files_.clear();
    auto const now = fs::file_time_type::clock::now();
    for (File const& file : Directory::NewInstance(Directory::anyDirectory, path_)->GetFiles("*", "*"))
        files_[String(Stem(file)).GetAsLower().GetStdString()].push_back(file.GetPath());
    changed_ = changed;
    listed_ = !failure && now - changed > coarsestClock;
}

std::optional<File> ImageDirectory::Find(String const& name) {
    Refresh();
    auto const found = files_.find(name.GetAsLower().GetStdString());
    if (found == files_.end()) return std::nullopt;
    // A file of exactly that name goes before one that differs in case.
    for (String const& path : found->second)
        if (File const file(path); Stem(file) == name.GetStdString()) return file;
    return File(found->second.front());
}

} // namespace GUI
