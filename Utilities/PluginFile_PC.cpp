#include "Utilities/PluginFile_PC.h"

#include "Utilities/ElfFile_PC.h"
#include "Utilities/PluginInterface.h"
#include "core/base/Exceptions.h"

#include <cstdint>

namespace Utilities {

using Norvelian::Utilities::Exceptions::ResourceException;

namespace {

#if defined(__x86_64__)
constexpr std::uint16_t processor = EM_X86_64;
#elif defined(__aarch64__)
constexpr std::uint16_t processor = EM_AARCH64;
#else
#error "Say here which processor's modules can be loaded"
#endif

void Check(std::string const& path) {
    ElfFile const file(path);
    if (file.GetType() != ET_DYN || file.GetProcessor() != processor)
        throw ResourceException("it isn't a module for this system");
    for (ElfFile::Segment const& segment : file.GetSegments())
        // Memory that is mapped from beyond a file's end ends the process at the first access.
        if (segment.p_type == PT_LOAD && !file.Has(segment.p_offset, segment.p_filesz))
            throw ResourceException("the file is cut short");
    auto const note = file.FindNote(PluginInterfaceNote::owner, PluginInterfaceNote::typeOfInterface);
    if (!note) throw ResourceException("it isn't a plug-in of this system: it has no note of its interface");
    std::string const interface = note->substr(0, note->find('\0'));
    if (interface != pluginInterface)
        throw ResourceException("it is built for " + interface + ", this program for " + pluginInterface);
}

} // namespace

void CheckPluginFile(std::string const& path) {
    try {
        Check(path);
    } catch (ResourceException const& failure) {
        throw Norvelian::Utilities::Exceptions::ResourceNotAvailableException(
            "The plug-in " + path + " can't be loaded: " + failure.what());
    }
}

} // namespace Utilities
