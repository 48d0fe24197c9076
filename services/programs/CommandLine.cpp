#include "services/programs/CommandLine.h"

namespace GUI {

std::vector<std::string> SplitCommandLine(std::string_view line) {
    std::vector<std::string> words;
    bool inWord = false;
    char quote = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        char const character = line[i];
        bool const isBlank = character == ' ' || character == '\t' || character == '\n';
        if (quote == 0 && isBlank) {
            inWord = false;
            continue;
        }
        // Quotes with nothing between them are a word too.
        if (!inWord) words.emplace_back();
        inWord = true;
        if (character == quote)
            quote = 0;
        else if (quote == 0 && (character == '"' || character == '\''))
            quote = character;
        else if (character == '\\' && quote != '\'' && i + 1 < line.size())
            words.back() += line[++i];
        else
            words.back() += character;
    }
    return words;
}

} // namespace GUI
