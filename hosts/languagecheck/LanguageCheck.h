#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// Checks of a program's language files, and what they are checked against.
namespace LanguageCheck {

/// A place in a file, and what is to be said about it.
struct Finding {
    std::string file;
    std::size_t line = 0;
    std::string text;
};

/// A text that is shown to a user, and where.
struct UsedKey {
    std::string file;
    std::size_t line = 0;
    std::string key;
};

/// The lines of the key file that define a key, `\n` in it unfolded.
struct KeyLine {
    std::size_t line = 0;
    std::string key;
};

/// The attributes of a description whose values are translated: "Caption", "Text", "ToolTipText".
std::vector<std::string> const& TranslatedAttributes();

/// Texts of a description (by `TranslatedAttributes`) or, from a file that isn't XML, the literal arguments
/// of `GetTranslation`. A description that isn't well-formed is a finding.
std::vector<UsedKey> ExtractKeys(std::string const& file, std::string const& contents,
                                 std::vector<Finding>& findings);

/// Checks `Languages.key` in a directory and every `*.lang` beside it: files and version lines, keys that
/// are given twice, translations that are missing or superfluous, files of mixed encodings. Fills `keys`.
void CheckFiles(std::string const& directory, std::vector<KeyLine>& keys, std::vector<Finding>& findings);

/// Reports, once for each text, what is used and has no key.
void CheckUse(std::vector<UsedKey> const& used, std::vector<KeyLine> const& keys,
              std::vector<Finding>& findings);

/// A key as it is in the key file.
std::string Folded(std::string const& key);

} // namespace LanguageCheck
