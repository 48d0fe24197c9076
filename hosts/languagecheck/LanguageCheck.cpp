#include "hosts/languagecheck/LanguageCheck.h"

#include "Utilities/Directory.h"
#include "core/base/Exceptions.h"
#include "core/base/Utf8.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

namespace LanguageCheck {

using Norvelian::Utilities::Exceptions::ResourceException;
using Utilities::Directory;
using Utilities::File;
using Utilities::String;

namespace {

std::vector<std::string> ReadLines(File file) {
    std::vector<std::string> lines;
    file.Open();
    while (!file.IsAtEnd()) lines.push_back(file.ReadLine());
    return lines;
}

std::string Quoted(std::string const& text) { return '"' + Folded(text) + '"'; }

std::string Unfolded(std::string const& line) {
    String text(line);
    text.Replace("\\n", "\n");
    return text;
}

/// Text is shown as UTF-8 where it is that and as Windows-1252 elsewhere. In a file of the latter, two
/// letters beside each other may be the former by chance.
void CheckEncoding(std::string const& path, std::vector<std::string> const& lines,
                   std::vector<Finding>& findings) {
    std::size_t lineOfUtf8 = 0;
    bool hasBytes = false;
    for (std::size_t i = 0; i < lines.size(); ++i)
        for (std::string_view rest = lines[i]; !rest.empty();) {
            std::size_t const length = Utilities::Utf8SequenceLength(rest);
            if (length == 0) hasBytes = true;
            if (length > 1 && lineOfUtf8 == 0) lineOfUtf8 = i + 1;
            rest.remove_prefix(std::max<std::size_t>(length, 1));
        }
    if (hasBytes && lineOfUtf8 != 0)
        findings.push_back({path, lineOfUtf8, "reads as UTF-8 in a file that isn't"});
}

void CheckLanguage(File const& file, std::vector<std::string> const& keyLines,
                   std::vector<Finding>& findings) {
    std::string const path = file.GetPath();
    auto const lines = ReadLines(file);
    std::string const version = lines.empty() ? "" : lines.front();
    if (version != keyLines.front()) {
        findings.push_back(
            {path, 1,
             "the version " + Quoted(version) + " differs from the key file's " + Quoted(keyLines.front())});
        return;
    }
    if (lines.size() != keyLines.size())
        findings.push_back({path, std::min(lines.size(), keyLines.size()) + 1,
                            "there are " + std::to_string(lines.size()) + " lines and the key file has " +
                                std::to_string(keyLines.size())});
    for (std::size_t i = 1; i < std::min(lines.size(), keyLines.size()); ++i) {
        if (!keyLines[i].empty() && lines[i].empty())
            findings.push_back({path, i + 1, "no translation of " + Quoted(keyLines[i])});
        if (keyLines[i].empty() && !lines[i].empty())
            findings.push_back({path, i + 1, "a translation without a key is dropped"});
    }
    CheckEncoding(path, lines, findings);
}

} // namespace

std::string Folded(std::string const& key) {
    String text(key);
    text.Replace("\n", "\\n");
    return text;
}

void CheckFiles(std::string const& directory, std::vector<KeyLine>& keys, std::vector<Finding>& findings) {
    auto const files = Directory::NewInstance(Directory::anyDirectory, directory);
    auto const keyFiles = files->GetFiles("Languages", "key");
    if (keyFiles.GetSize() == 0) {
        findings.push_back({directory + "/Languages.key", 0, "there is no key file"});
        return;
    }
    try {
        auto keyLines = ReadLines(keyFiles[0]);
        std::string const path = keyFiles[0].GetPath();
        if (keyLines.empty()) {
            findings.push_back({path, 1, "the version line is missing"});
            return;
        }
        std::map<std::string, std::size_t> first;
        for (std::size_t i = 1; i < keyLines.size(); ++i) {
            std::string const key = Unfolded(keyLines[i]);
            if (key.empty()) continue;
            auto const [entry, isNew] = first.try_emplace(key, i + 1);
            if (isNew)
                keys.push_back({i + 1, key});
            else
                findings.push_back(
                    {path, i + 1,
                     "the key " + Quoted(key) + " is on line " + std::to_string(entry->second) + " already"});
        }
        auto const languages = files->GetFiles("*", "lang");
        for (File const& language : languages) CheckLanguage(language, keyLines, findings);
        if (languages.GetSize() == 0) findings.push_back({directory, 0, "there is no language file"});
    } catch (ResourceException const& failure) {
        findings.push_back({directory, 0, failure.what()});
    }
}

void CheckUse(std::vector<UsedKey> const& used, std::vector<KeyLine> const& keys,
              std::vector<Finding>& findings) {
    std::set<std::string> known;
    for (KeyLine const& line : keys) known.insert(line.key);
    for (UsedKey const& use : used)
        if (known.insert(use.key).second)
            findings.push_back({use.file, use.line, "there is no key " + Quoted(use.key)});
}

} // namespace LanguageCheck
