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

    /// Lists the directory if that is needed; false if there is none.
    bool Refresh();
    /// The first file of that name, in the state of the last `Refresh`.
    std::optional<Utilities::File> Find(Utilities::String const& name) const;

private:
    struct Entry {
        std::string name;
        std::string path;
    };

    std::string path_;
    std::filesystem::file_time_type changed_;
    bool listed_ = false;
    /// By the name in lower case, in the order of the directory.
    std::map<std::string, std::vector<Entry>> files_;
};

} // namespace GUI
