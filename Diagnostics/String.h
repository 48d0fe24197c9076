#pragma once

#include <string>

namespace Diagnostics {

/// Text for diagnosis and self-description; never shown to a user.
///
/// It is kept apart from the text type of the user interface so that a diagnostic cannot end up on
/// the screen by accident. Every component's `GetValueString` returns one, as a rule its class name.
class String {
public:
    String() = default;
    String(char const* text) : text_(text) {} // NOLINT(google-explicit-constructor): texts are literals
    explicit String(unsigned long number) : text_(std::to_string(number)) {}

    String& operator+=(char const* text) {
        text_ += text;
        return *this;
    }
    String& operator+=(String const& other) {
        text_ += other.text_;
        return *this;
    }

    char const* GetCharPointer() const { return text_.c_str(); }
    bool operator==(String const&) const = default;

private:
    std::string text_;
};

} // namespace Diagnostics
