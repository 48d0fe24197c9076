#pragma once

#include "Utilities/File.h"

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace GUI {

/// The files of one directory by their names without extension, as `Utilities::Directory` lists them for
/// the extension "*".
///
/// A listing is kept as long as the directory didn't change: its time of change is compared, and while that
/// is so young that another change might bear the same time, the directory is listed again.
class ImageDirectory {
public:
    explicit ImageDirectory(std::string path) : path_(std::move(path)) {}

    /// The first file of that name.
    std::optional<Utilities::File> Find(Utilities::String const& name);
    bool Exists() const;
    std::string const& GetPath() const { return path_; }

private:
    void Refresh();

    std::string path_;
    std::filesystem::file_time_type changed_;
    bool listed_ = false;
    /// By the name in lower case, in the order of the directory.
    std::map<std::string, std::vector<Utilities::String>> files_;
};

} // namespace GUI
