#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// One word of a CGATS file; `text` points into the file's text and leaves out the quotes.
struct CgatsToken {
    std::string_view text;
    bool quoted = false;
    bool startsLine = false; ///< the first word of its line
    bool atEnd = false;      ///< there is no further word

    /// Whether this is the keyword, given in capitals; files write it in any case.
    bool Is(std::string_view word) const;
    /// The text with doubled quotes made single.
    std::string Unquoted() const;
};

/// Cuts CGATS text into words: separated by blanks, tabs and line ends (LF, CR LF or CR); quoted words may
/// hold blanks and doubled quotes, and end on their line; "#" before a word begins a comment that reaches
/// to the end of the line.
class CgatsScanner {
public:
    /// The name is in error messages; the text must outlive the scanner.
    CgatsScanner(std::string_view text, std::string const& file);

    CgatsToken Next();
    CgatsToken Peek();
    /// The words up to the end of the line: one word without its quotes, several as they are.
    std::string RestOfLine();
    /// The comments since they were last taken, without "#".
    std::vector<std::string_view> TakeComments();

    /// How many bytes of the text are before a word.
    std::size_t OffsetOf(CgatsToken const& where) const {
        return static_cast<std::size_t>(where.text.data() - text_.data());
    }
    std::size_t GetSize() const { return text_.size(); }
    /// The line of a place in the text, from 1.
    unsigned long LineOf(CgatsToken const& where) const;
    /// Throws `FileException` at a word, which must come from this text; for the end of the text, there.
    [[noreturn]] void Fail(CgatsToken const& where, std::string const& reason) const;
    [[noreturn]] void FailAt(char const* where, std::string const& reason) const;

private:
    CgatsToken Quoted(CgatsToken token);
    /// Line and column.
    std::pair<unsigned long, unsigned long> PlaceOf(char const* where) const;

    /// How far lines have been counted.
    struct Counted {
        char const* at = nullptr;
        char const* lineBegin = nullptr;
        unsigned long line = 1;
    };

    std::string const& file_;
    std::string_view text_;
    char const* position_;
    char const* end_;
    bool newLine_ = true;
    bool begun_ = false; ///< whether a token was read; before it, byte order marks are skipped
    std::vector<std::string_view> comments_;
    mutable Counted counted_;
};

} // namespace Norvelian::ColorExchangeFormat
