#include "Utilities/ElfFile_PC.h"

#include "core/base/Exceptions.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Utilities {

using Norvelian::Utilities::Exceptions::ResourceException;

namespace {

using Header = ElfW(Ehdr);
using NoteHeader = ElfW(Nhdr);
using Dynamic = ElfW(Dyn);

constexpr std::uint64_t largestNotes = 65536;
constexpr std::uint64_t mostNotes = 1'048'576;
constexpr std::uint64_t largestDynamic = 65536;
constexpr std::uint64_t longestName = 1024;

std::size_t Padded(std::size_t size) { return (size + 3) / 4 * 4; }

std::optional<std::string> FindAmong(std::string_view notes, std::string_view owner, std::uint32_t type) {
    while (notes.size() >= sizeof(NoteHeader)) {
        NoteHeader header{};
        std::memcpy(&header, notes.data(), sizeof header);
        notes.remove_prefix(sizeof header);
        std::size_t const ownerSize = Padded(header.n_namesz);
        if (ownerSize < header.n_namesz || ownerSize > notes.size()) return {};
        // The name counts its final zero.
        std::string_view const name = notes.substr(0, std::max<std::size_t>(header.n_namesz, 1) - 1);
        bool const isIt = header.n_type == type && name == owner;
        notes.remove_prefix(ownerSize);
        if (header.n_descsz > notes.size()) return {};
        if (isIt) return std::string(notes.substr(0, header.n_descsz));
        notes.remove_prefix(std::min(Padded(header.n_descsz), notes.size()));
    }
    return {};
}

} // namespace

ElfFile::ElfFile(std::string const& path) : number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    try {
        struct stat information {};
        if (number_ < 0 || ::fstat(number_, &information) != 0) throw ResourceException(std::strerror(errno));
        if (!S_ISREG(information.st_mode)) throw ResourceException("it isn't an ordinary file");
        size_ = static_cast<std::uint64_t>(information.st_size);
        ReadSegments();
    } catch (...) {
        if (number_ >= 0) ::close(number_);
        throw;
    }
}

ElfFile::~ElfFile() { ::close(number_); }

void ElfFile::Read(std::uint64_t offset, void* target, std::uint64_t size) const {
    if (!Has(offset, size)) throw ResourceException("the file is cut short");
    for (auto* bytes = static_cast<char*>(target); size > 0;) {
        ssize_t const count = ::pread(number_, bytes, size, static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) throw ResourceException("the file can't be read");
        bytes += count;
        offset += static_cast<std::uint64_t>(count);
        size -= static_cast<std::uint64_t>(count);
    }
}

void ElfFile::ReadSegments() {
    Header header{};
    Read(0, &header, sizeof header);
    constexpr unsigned char bits = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;
    if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_ident[EI_CLASS] != bits ||
        header.e_phentsize != sizeof(Segment))
        throw ResourceException("it isn't a module for this system");
    type_ = header.e_type;
    processor_ = header.e_machine;
    segments_.resize(header.e_phnum);
    Read(header.e_phoff, segments_.data(), segments_.size() * sizeof(Segment));
}

std::optional<std::string> ElfFile::FindNote(std::string_view owner, std::uint32_t type) const {
    std::uint64_t read = 0;
    for (Segment const& segment : segments_) {
        if (segment.p_type != PT_NOTE || segment.p_filesz > largestNotes) continue;
        // Segments may lie over each other, by the thousand.
        read += segment.p_filesz;
        if (read > mostNotes) return {};
        std::string notes(segment.p_filesz, '\0');
        Read(segment.p_offset, notes.data(), notes.size());
        if (auto found = FindAmong(notes, owner, type)) return found;
    }
    return {};
}

std::optional<std::uint64_t> ElfFile::OffsetOf(std::uint64_t address) const {
    for (Segment const& segment : segments_)
        if (segment.p_type == PT_LOAD && address >= segment.p_vaddr &&
            address - segment.p_vaddr < segment.p_filesz)
            return segment.p_offset + (address - segment.p_vaddr);
    return {};
}

std::string ElfFile::GetLinkName() const {
    auto const dynamic = std::find_if(segments_.begin(), segments_.end(),
                                      [](Segment const& segment) { return segment.p_type == PT_DYNAMIC; });
    if (dynamic == segments_.end() || dynamic->p_filesz > largestDynamic) return {};
    std::vector<Dynamic> entries(dynamic->p_filesz / sizeof(Dynamic));
    Read(dynamic->p_offset, entries.data(), entries.size() * sizeof(Dynamic));
    std::optional<std::uint64_t> name;
    std::optional<std::uint64_t> texts;
    for (Dynamic const& entry : entries) {
        if (entry.d_tag == DT_SONAME) name = entry.d_un.d_val;
        if (entry.d_tag == DT_STRTAB) texts = OffsetOf(entry.d_un.d_ptr);
    }
    if (!name || !texts || !Has(*texts, 0) || !Has(*texts, *name)) return {};
    std::uint64_t const place = *texts + *name;
    std::string text(std::min(longestName, size_ - place), '\0');
    Read(place, text.data(), text.size());
    return text.substr(0, text.find('\0'));
}

} // namespace Utilities
