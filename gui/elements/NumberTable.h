#pragma once

#include "core/base/String.h"

#include <string>
#include <utility>

namespace GUI {

class GUIElement;

/// An element whose numbers other programs can take over.
class SupportsNumberTable {
public:
    virtual ~SupportsNumberTable() = default;
    /// As `NumberTable` writes it; empty while there is nothing to show.
    virtual Utilities::String GetNumberTable() = 0;
};

/// The numbers of the element, or of the first one below it that has some; empty without one.
Utilities::String NumberTableOf(GUIElement& element);

/// Writes a table as spreadsheets take it: a tab between two cells, a line end behind each row. Numbers have
/// "-" and ".", in any language, and as many digits as they need to be read back; what is no number is an
/// empty cell.
class NumberTable {
public:
    /// A tab or line end in the text becomes a blank.
    NumberTable& Add(Utilities::String const& text);
    NumberTable& Add(char const* text) { return Add(Utilities::String(text)); }
    NumberTable& Add(double number);
    void EndRow();
    Utilities::String Take() { return {std::move(text_)}; }

private:
    void BeginCell();

    std::string text_;
    bool inRow_ = false;
};

} // namespace GUI
