#include "gui/elements/NumberTable.h"

#include "gui/elements/GUIElement.h"

#include <charconv>
#include <cmath>

namespace GUI {

using Utilities::String;

String NumberTableOf(GUIElement& element) {
    CallScope const call(element);
    if (auto* const own = dynamic_cast<SupportsNumberTable*>(&element)) return own->GetNumberTable();
    auto const children = element.GetChildrenList();
    for (auto child = children.Begin(); child.IsValid(); ++child) {
        if (String table = NumberTableOf(*child.Current()); table.Length() != 0) return table;
    }
    return {};
}

void NumberTable::BeginCell() {
    if (inRow_) text_ += '\t';
    inRow_ = true;
}

NumberTable& NumberTable::Add(String const& text) {
    BeginCell();
    for (char const c : text.GetStdString()) text_ += c == '\t' || c == '\n' || c == '\r' ? ' ' : c;
    return *this;
}

NumberTable& NumberTable::Add(double number) {
    BeginCell();
    if (!std::isfinite(number)) return *this;
    constexpr std::size_t longest = 32;
    char digits[longest];
    auto const end = std::to_chars(digits, digits + longest, number).ptr;
    text_.append(digits, end);
    return *this;
}

void NumberTable::EndRow() {
    text_ += '\n';
    inRow_ = false;
}

} // namespace GUI
