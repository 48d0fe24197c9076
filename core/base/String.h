#pragma once

#include "Diagnostics/String.h"

#include <string>
#include <string_view>

namespace Utilities {

/// The text type of the system: bytes with value semantics.
///
/// Positions and lengths count bytes. What the bytes mean is decided where they reach the screen:
/// well-formed UTF-8 is UTF-8, any other byte is read as Windows-1252.
///
/// Numbers are read and written independently of the locale, with "." as the decimal point.
class String {
public:
    String() = default;
    // NOLINTBEGIN(google-explicit-constructor): texts and numbers become strings throughout the system
    String(char const* text) : text_(text ? text : "") {}
    String(std::string const& text) : text_(text) {}
    String(std::string&& text) noexcept : text_(std::move(text)) {}
    // NOLINTEND(google-explicit-constructor)
    explicit String(std::string_view text) : text_(text) {}
    explicit String(char character) : text_(1, character) {}
    explicit String(short number) : text_(std::to_string(number)) {}
    explicit String(unsigned short number) : text_(std::to_string(number)) {}
    explicit String(long number) : text_(std::to_string(number)) {}
    explicit String(unsigned long number) : text_(std::to_string(number)) {}
    /// A number with a fixed count of decimals, rounded to nearest.
    String(double number, short decimals, char decimalSeparator);

    String& operator+=(String const& other) {
        text_ += other.text_;
        return *this;
    }
    friend String operator+(String left, String const& right) {
        left += right;
        return left;
    }
    bool operator==(String const& other) const { return text_ == other.text_; }
    bool operator==(char const* other) const { return text_ == other; }

    operator std::string() const { return text_; } // NOLINT(google-explicit-constructor): contracted
    char const* GetCharPointer() const { return text_.c_str(); }
    std::string const& GetStdString() const { return text_; }
    /// Length in bytes.
    long Length() const { return static_cast<long>(text_.size()); }

    /// The bytes from `start`, at most `count` of them; what is outside the text is left out.
    String Mid(long start, long count) const;
    /// Position of the first occurrence at or behind `start`, -1 if there is none.
    long FindSubstring(String const& what, long start) const;
    /// Replaces every occurrence, from left to right; an empty `oldText` replaces nothing.
    void Replace(String const& oldText, String const& newText);
    /// The token with that index, counted from 0; empty beyond the last one.
    String GetToken(long index, char separator) const;
    /// One more than there are separators; an empty text has no token.
    long GetTokenCount(char separator) const;
    /// ASCII letters change case, other bytes stay.
    String GetAsLower() const;
    String GetAsUpper() const;

    /// @name The text as a number
    /// Leading blanks are passed over, then a number must be there; what follows it is ignored.
    /// A text without a number, or one that the type can't hold, throws `OutOfRangeException`; the
    /// long forms hold 32 bits. A text of blanks counts as 0.
    /// @{
    short GetShort() const;
    unsigned short GetUnsignedShort() const;
    long GetLong() const;
    unsigned long GetUnsignedLong() const;
    double GetDouble() const;
    /// @}

    /// A stable hash of the bytes, reduced below `bucketCount`.
    unsigned long GetHash(unsigned long bucketCount) const;

    Diagnostics::String GetValueString() const { return text_.c_str(); }

private:
    std::string text_;
};

} // namespace Utilities
