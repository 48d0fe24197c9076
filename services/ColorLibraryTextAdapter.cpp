#include "services/ColorLibraryTextAdapter.h"

#include "core/creators/ComponentCreator.h"

#include <string_view>

namespace Utilities {

namespace {

ComponentCreatorSingleton<ColorLibraryTextAdapter> creator({"ColorLibraryTextAdapter", "$Revision: 1.4 $",
                                                            "Tools"});

constexpr std::string_view word = "PANTONE";

/// Takes the first occurrence of the word out, with one of the two blanks around it; false if there is
/// none.
bool RemoveWord(std::string& name) {
    auto const position = String(name).GetAsUpper().GetStdString().find(word);
    if (position == std::string::npos) return false;
    std::size_t const behind = position + word.size();
    bool const betweenBlanks =
        position > 0 && name[position - 1] == ' ' && behind < name.size() && name[behind] == ' ';
    std::size_t const start = betweenBlanks ? position - 1 : position;
    name.erase(start, behind - start);
    return true;
}

} // namespace

String ColorLibraryTextAdapter::Adapt(String const& text, unsigned long maxLength) {
    if (static_cast<unsigned long>(text.Length()) <= maxLength || maxLength == 0) return text;
    std::string name = text.GetStdString();
    while (RemoveWord(name)) {
    }
    for (auto twice = name.find("  "); twice != std::string::npos; twice = name.find("  ", twice))
        name.erase(twice, 1);
    if (name.starts_with(' ')) name.erase(0, 1);
    if (name.ends_with(' ')) name.pop_back();
    return TextAdapter::Adapt(name, maxLength);
}

} // namespace Utilities
