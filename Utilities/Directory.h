#pragma once

#include "Utilities/File.h"
#include "Utilities/Tools/SmartPointer.h"
#include "Utilities/Tools/Vector.h"

namespace Utilities {

/// A directory and what is in it.
///
/// Names are matched without regard to the case of ASCII letters, as the programs expect whose texts
/// name files; a name of exactly that case comes first. Otherwise the order is that of the names' bytes.
class Directory {
public:
    /// The types of directory that `NewInstance` knows.
    static constexpr long anyDirectory = 0;
    static constexpr long programDirectory = 1;

    virtual ~Directory() = default;

    /// `programDirectory` with an empty name is where the program's own files are (see
    /// `GetProgramDirectory`), with a name a directory below it; `anyDirectory` is the one that `name` is
    /// the path of. It needn't exist. Another type throws `InvalidArgumentException`.
    static SmartPointer<Directory> NewInstance(long type, String const& name);

    /// Without a separator at its end.
    virtual String GetPath() const = 0;
    /// "*" means every name. Empty if the directory can't be read.
    virtual Vector<SmartPointer<Directory>> GetSubDirectories(String const& name) const = 0;
    /// Name and extension are what comes before and after the last "." of a file's name; "*" is
    /// for every one, also for no extension.
    virtual Vector<File> GetFiles(String const& name, String const& extension) const = 0;
};

} // namespace Utilities
