#pragma once

#include "Utilities/Directory.h"

namespace Utilities {

/// A directory of the platform's file system.
class Directory_PC : public Directory {
public:
    explicit Directory_PC(String const& path);

    String GetPath() const override { return path_; }
    Vector<SmartPointer<Directory>> GetSubDirectories(String const& name) const override;
    Vector<File> GetFiles(String const& name, String const& extension) const override;

    /// The path with the separators of this platform.
    static String ConvSeperatorDependend(String const& path);

private:
    String path_;
};

} // namespace Utilities
