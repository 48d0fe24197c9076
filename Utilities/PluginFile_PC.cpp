#include "Utilities/PluginFile_PC.h"

#include "Utilities/PluginInterface.h"
#include "core/base/Exceptions.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <link.h>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace Utilities {

namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);
using NoteHeader = ElfW(Nhdr);

constexpr std::uint64_t largestNotes = 65536;

#if defined(__x86_64__)
constexpr std::uint16_t processor = EM_X86_64;
#elif defined(__aarch64__)
constexpr std::uint16_t processor = EM_AARCH64;
#else
#error "Say here which processor's modules can be loaded"
#endif

class ModuleFile {
public:
    explicit ModuleFile(std::string const& path)
        : path_(path), number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
        struct stat information {};
        if (number_ < 0 || ::fstat(number_, &information) != 0) {
            std::string const reason = std::strerror(errno);
            Close();
            Fail(reason);
        }
        if (!S_ISREG(information.st_mode)) {
            Close();
            Fail("it isn't an ordinary file");
        }
        size_ = static_cast<std::uint64_t>(information.st_size);
    }
    ModuleFile(ModuleFile const&) = delete;
    ModuleFile& operator=(ModuleFile const&) = delete;
    ~ModuleFile() { Close(); }

    [[noreturn]] void Fail(std::string const& reason) const {
        throw Norvelian::Utilities::Exceptions::ResourceNotAvailableException("The plug-in " + path_ +
                                                                              " can't be loaded: " + reason);
    }
    bool Has(std::uint64_t offset, std::uint64_t size) const {
        return offset <= size_ && size <= size_ - offset;
    }
    void Read(std::uint64_t offset, void* target, std::uint64_t size) const {
        if (!Has(offset, size)) Fail("the file is cut short");
        for (auto* bytes = static_cast<char*>(target); size > 0;) {
            ssize_t const count = ::pread(number_, bytes, size, static_cast<off_t>(offset));
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) Fail("the file can't be read");
            bytes += count;
            offset += static_cast<std::uint64_t>(count);
            size -= static_cast<std::uint64_t>(count);
        }
    }

private:
    void Close() const {
        if (number_ >= 0) ::close(number_);
    }

    std::string const path_;
    int const number_;
    std::uint64_t size_ = 0;
};

std::vector<Segment> ReadSegments(ModuleFile const& file) {
    Header header{};
    file.Read(0, &header, sizeof header);
    constexpr unsigned char bits = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;
    if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_ident[EI_CLASS] != bits ||
        header.e_type != ET_DYN || header.e_machine != processor || header.e_phentsize != sizeof(Segment))
        file.Fail("it isn't a module for this system");
    std::vector<Segment> segments(header.e_phnum);
    file.Read(header.e_phoff, segments.data(), segments.size() * sizeof(Segment));
    return segments;
}

std::size_t Padded(std::size_t size) { return (size + 3) / 4 * 4; }

/// The text of our note among these, if it is there.
std::optional<std::string> FindInterface(std::string_view notes) {
    while (notes.size() >= sizeof(NoteHeader)) {
        NoteHeader header{};
        std::memcpy(&header, notes.data(), sizeof header);
        notes.remove_prefix(sizeof header);
        std::size_t const owner = Padded(header.n_namesz);
        if (owner < header.n_namesz || owner > notes.size()) return {};
        bool const isOurs =
            header.n_type == PluginInterfaceNote::typeOfInterface &&
            notes.substr(0, header.n_namesz) ==
                std::string_view(PluginInterfaceNote::owner, sizeof PluginInterfaceNote::owner);
        notes.remove_prefix(owner);
        if (header.n_descsz > notes.size()) return {};
        std::string_view const text = notes.substr(0, header.n_descsz);
        if (isOurs) return std::string(text.substr(0, text.find('\0')));
        notes.remove_prefix(std::min(Padded(header.n_descsz), notes.size()));
    }
    return {};
}

} // namespace

void CheckPluginFile(std::string const& path) {
    ModuleFile const file(path);
    std::optional<std::string> interface;
    for (Segment const& segment : ReadSegments(file)) {
        // Memory that is mapped from beyond a file's end ends the process at the first access.
        if (segment.p_type == PT_LOAD && !file.Has(segment.p_offset, segment.p_filesz))
            file.Fail("the file is cut short");
        if (segment.p_type != PT_NOTE || segment.p_filesz > largestNotes || interface) continue;
        std::string notes(segment.p_filesz, '\0');
        file.Read(segment.p_offset, notes.data(), notes.size());
        interface = FindInterface(notes);
    }
    if (!interface) file.Fail("it isn't a plug-in of this system: it has no note of its interface");
    if (*interface != pluginInterface)
        file.Fail("it is built for " + *interface + ", this program for " + pluginInterface);
}

} // namespace Utilities
