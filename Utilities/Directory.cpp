#include "Utilities/Directory.h"

#include "Utilities/Directory_PC.h"
#include "Utilities/ProgramDirectory.h"
#include "core/base/Exceptions.h"

namespace Utilities {

SmartPointer<Directory> Directory::NewInstance(long type, String const& name) {
    if (type != anyDirectory && type != programDirectory)
        throw Norvelian::Utilities::Exceptions::InvalidArgumentException("There is no directory of type " +
                                                                         std::to_string(type));
    std::string path = name.GetStdString();
    if (type == programDirectory) path = GetProgramDirectory() + (path.empty() ? "" : "/" + path);
    return MakeSmart<Directory_PC>(path);
}

} // namespace Utilities
