#pragma once

#include "Utilities/Stream.h"

#include <fstream>
#include <memory>

namespace Utilities {

/// A file by its path, and the text in it while it is open. A copy names the same file and is closed.
///
/// No character set is converted; a UTF-8 byte order mark at the start is passed over.
class File : public Stream {
public:
    File() = default;
    explicit File(String const& path) : path_(path) {}
    File(File const& other) : File(other.path_) {}
    File& operator=(File const& other);
    File(File&&) noexcept = default;
    File& operator=(File&&) noexcept = default;
    ~File() override = default;

    String const& GetPath() const { return path_; }
    /// The last part of the path, with its extension.
    String GetName() const;
    /// The path of the directory that it is in.
    String GetDirectoryPath() const;

    /// Opens it at its start for reading. Throws `ResourceNotAvailableException` naming the path if it
    /// is no file that can be read.
    void Open();
    /// Creates it, empty, and opens it for writing; throws as `Open` does.
    void Create();

    /// Throws `ResourceException` naming the path if the rest can't be read.
    String ReadLine() override;
    bool IsAtEnd() override;
    /// A failure shows with `Close`.
    void Write(String const& text) override;
    /// Throws `ResourceException` naming the path if what was written isn't all in the file.
    void Close() override;

private:
    void OpenAs(std::ios::openmode mode, char const* what);

    String path_;
    std::unique_ptr<std::fstream> stream_;
};

} // namespace Utilities
