#include "cxf/files/CgatsScanner.h"

#include "Utilities/Limits.h"
#include "cxf/files/FileException.h"

#include <algorithm>
#include <utility>

namespace Norvelian::ColorExchangeFormat {

using ::Utilities::Limits;

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

constexpr bool IsBlank(char c) { return c == ' ' || c == '\t'; }
constexpr bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }
/// Bytes that no text file holds, in any encoding that extends ASCII.
constexpr bool IsBinary(char c) {
    auto const byte = static_cast<unsigned char>(c);
    return byte < ' ' && !IsBlank(c) && !IsLineEnd(c) && c != '\f' && c != '\v' && c != 0x1a;
}
constexpr bool EndsWord(char c) { return static_cast<unsigned char>(c) <= ' '; }

} // namespace

bool CgatsToken::Is(std::string_view word) const {
    return !quoted && !atEnd && text.size() == word.size() &&
           std::equal(text.begin(), text.end(), word.begin(),
                      [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; });
}

std::string CgatsToken::Unquoted() const {
    if (!quoted) return std::string(text);
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        result += text[at];
        if (text[at] == '"' && at + 1 < text.size() && text[at + 1] == '"') ++at;
    }
    return result;
}

CgatsScanner::CgatsScanner(std::string_view text, std::string const& file)
    : file_(file), text_(text), position_(text.data()), end_(text.data() + text.size()) {
    auto const longest = static_cast<std::ptrdiff_t>(Limits::Get().textLength);
    char const* line = position_;
    for (char const* at = position_; at != end_; ++at) {
        if (IsBinary(*at)) FailAt(at, "the file is binary; expected CGATS text");
        if (IsLineEnd(*at)) line = at + 1;
        if (at - line >= longest)
            FailAt(line, "the line has " + Limits::Passed("textLength", Limits::Get().textLength, "bytes"));
    }
}

CgatsToken CgatsScanner::Next() {
    CgatsToken token;
    while (position_ != end_) {
        char const c = *position_;
        if (IsLineEnd(c)) {
            newLine_ = true;
            ++position_;
        } else if (c == '#') {
            char const* const begin = position_ + 1;
            position_ = std::find_if(begin, end_, IsLineEnd);
            comments_.emplace_back(begin, position_);
        } else if (EndsWord(c)) {
            ++position_;
        } else if (!begun_ && std::string_view(position_, end_).starts_with(kByteOrderMark)) {
            // Editors put one at the very start; joined files bring several, behind blanks and comments.
            position_ += kByteOrderMark.size();
        } else {
            break;
        }
    }
    begun_ = true;
    token.startsLine = newLine_;
    newLine_ = false;
    if (position_ == end_) {
        token.text = {end_, end_};
        token.atEnd = true;
        return token;
    }
    if (*position_ == '"') return Quoted(token);
    char const* const begin = position_;
    while (position_ != end_ && !EndsWord(*position_)) ++position_;
    token.text = {begin, position_};
    return token;
}

CgatsToken CgatsScanner::Quoted(CgatsToken token) {
    char const* const begin = ++position_;
    token.quoted = true;
    while (position_ != end_ && !IsLineEnd(*position_)) {
        if (*position_ != '"') {
            ++position_;
        } else if (position_ + 1 != end_ && position_[1] == '"') {
            position_ += 2;
        } else {
            token.text = {begin, position_++};
            return token;
        }
    }
    FailAt(begin - 1, "the quoted text doesn't end on its line; expected \"");
}

CgatsToken CgatsScanner::Peek() {
    char const* const position = position_;
    bool const newLine = newLine_;
    bool const begun = begun_;
    std::size_t const comments = comments_.size();
    CgatsToken const token = Next();
    position_ = position;
    newLine_ = newLine;
    begun_ = begun;
    comments_.resize(comments);
    return token;
}

std::string CgatsScanner::RestOfLine() {
    CgatsToken const first = Peek();
    if (first.startsLine || first.atEnd) return {};
    Next();
    CgatsToken last = first;
    for (CgatsToken next = Peek(); !next.startsLine && !next.atEnd; next = Peek()) last = Next();
    if (last.text.data() == first.text.data()) return first.Unquoted();
    char const* const begin = first.text.data() - (first.quoted ? 1 : 0);
    char const* const end = last.text.data() + last.text.size() + (last.quoted ? 1 : 0);
    return {begin, end};
}

std::vector<std::string_view> CgatsScanner::TakeComments() { return std::exchange(comments_, {}); }

void CgatsScanner::Fail(CgatsToken const& where, std::string const& reason) const {
    FailAt(where.text.data() - (where.quoted ? 1 : 0), reason);
}

std::pair<unsigned long, unsigned long> CgatsScanner::PlaceOf(char const* where) const {
    // Places are mostly asked for in the order of the text: each line is counted once.
    if (!counted_.at || counted_.at > where) counted_ = {text_.data(), text_.data(), 1};
    for (; counted_.at != where; ++counted_.at) {
        char const* const at = counted_.at;
        bool const crBeforeLf = *at == '\r' && at + 1 != end_ && at[1] == '\n';
        if (!IsLineEnd(*at) || crBeforeLf) continue;
        ++counted_.line;
        counted_.lineBegin = at + 1;
    }
    return {counted_.line, static_cast<unsigned long>(where - counted_.lineBegin) + 1};
}

unsigned long CgatsScanner::LineOf(CgatsToken const& where) const { return PlaceOf(where.text.data()).first; }

void CgatsScanner::FailAt(char const* where, std::string const& reason) const {
    auto const [line, column] = PlaceOf(where);
    throw FileException(file_, line, column, reason);
}

} // namespace Norvelian::ColorExchangeFormat
