#pragma once

#include <string>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// Something that a reader did with a place of a file.
struct ReadNote {
    enum class Kind {
        Taken,        ///< read as the file says it
        Assumed,      ///< not said by the file: a default, evidence, or a remark in a free text
        Converted,    ///< said by the file in another unit or range than is kept
        Skipped,      ///< looked at and not understood; kept as text where that is possible
        Contradiction ///< the file says two things; the note says which was taken
    };
    Kind kind = Kind::Taken;
    unsigned long line = 0; ///< from 1; 0 if no place of the file says it
    std::string text;

    bool operator==(ReadNote const&) const = default;
};

/// What a reader made of a file, table by table, header before data: the ground on which to trust a foreign
/// file.
class ReadReport {
public:
    void Add(ReadNote::Kind kind, unsigned long line, std::string text) {
        notes_.push_back({kind, line, std::move(text)});
    }
    std::vector<ReadNote> const& GetNotes() const { return notes_; }
    /// Whether there is a note that a strict reading refuses: an assumption or a contradiction.
    bool HasAssumptions() const;
    /// One line for each note: "12: assumed: observer 2 degrees, the default of CGATS.17".
    std::string GetText() const;
    void Clear() { notes_.clear(); }

    static char const* NameOf(ReadNote::Kind kind);

private:
    std::vector<ReadNote> notes_;
};

} // namespace Norvelian::ColorExchangeFormat
