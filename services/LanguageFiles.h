#pragma once

#include "Utilities/Directory.h"
#include "services/LanguageTexts.h"

#include <map>
#include <string>
#include <vector>

namespace Utilities {

/// The language directory of a program: the key file `Languages.key` and one file `<language>.lang` for
/// each language.
///
/// The first line of every file is its version and must be the same in all. Line n of a language file is
/// the translation of line n of the key file. `\n` in a line means a line break; an empty key line
/// defines nothing.
class LanguageFiles {
public:
    /// Reads the directory "Languages" below `parent`. What has been read stays if it throws
    /// `ResourceNotAvailableException`, whose text names all that is wrong.
    void Read(Directory const& parent);

    String const& GetVersion() const { return version_; }
    /// Names of the languages in the order in which their files were read.
    std::vector<std::string> const& GetOrder() const { return order_; }
    std::map<std::string, LanguageTexts> const& GetLanguages() const { return languages_; }

    /// "english.xy.lang" is "English".
    static std::string LanguageName(File const& file);
    /// A line as it is meant, with line breaks for `\n`.
    static String Unfolded(String line);

private:
    void ReadLanguage(File keyFile, File languageFile, std::string& conflicts);

    String version_;
    std::vector<std::string> order_;
    std::map<std::string, LanguageTexts> languages_;
};

} // namespace Utilities
