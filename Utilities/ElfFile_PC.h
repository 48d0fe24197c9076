#pragma once

#include <cstdint>
#include <link.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Utilities {

/// A module's file in the executable format of this system, read without running or mapping it. Everything in
/// it is untrusted: what doesn't fit throws `ResourceException` with the reason alone.
class ElfFile {
public:
    using Segment = ElfW(Phdr);

    explicit ElfFile(std::string const& path);
    ElfFile(ElfFile const&) = delete;
    ElfFile& operator=(ElfFile const&) = delete;
    ~ElfFile();

    bool Has(std::uint64_t offset, std::uint64_t size) const {
        return offset <= size_ && size <= size_ - offset;
    }
    std::uint16_t GetType() const { return type_; }
    std::uint16_t GetProcessor() const { return processor_; }
    std::vector<Segment> const& GetSegments() const { return segments_; }
    /// What the first note of that owner and type says.
    std::optional<std::string> FindNote(std::string_view owner, std::uint32_t type) const;
    /// The name by which others are linked to it; empty for one without.
    std::string GetLinkName() const;

private:
    void Read(std::uint64_t offset, void* target, std::uint64_t size) const;
    void ReadSegments();
    /// Where in the file an address of the loaded module comes from.
    std::optional<std::uint64_t> OffsetOf(std::uint64_t address) const;

    int number_;
    std::uint64_t size_ = 0;
    std::uint16_t type_ = 0;
    std::uint16_t processor_ = 0;
    std::vector<Segment> segments_;
};

} // namespace Utilities
