// languagecheck DIRECTORY [FILE|DIRECTORY ...]
//     checks the language files in DIRECTORY, and that every text of the descriptions (*.xml) and sources
//     (*.h, *.cpp) given has a key. Findings go to standard output as file:line: text. Exit code 0 without
//     findings, 1 with some, 2 for wrong usage or a file that can't be read.
// languagecheck --extract FILE|DIRECTORY ...
//     prints the keys of descriptions and sources, one a line, as they are in a key file.

#include "hosts/languagecheck/LanguageCheck.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

std::vector<std::string> FilesIn(std::string const& place) {
    if (!fs::is_directory(place)) return {place};
    std::vector<std::string> files;
    for (auto const& entry : fs::recursive_directory_iterator(place)) {
        auto const extension = entry.path().extension();
        if (entry.is_regular_file() && (extension == ".xml" || extension == ".h" || extension == ".cpp"))
            files.push_back(entry.path().string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<LanguageCheck::UsedKey> KeysIn(std::vector<std::string> const& places,
                                           std::vector<LanguageCheck::Finding>& findings) {
    std::vector<LanguageCheck::UsedKey> used;
    for (std::string const& place : places)
        for (std::string const& path : FilesIn(place)) {
            std::ifstream file(path, std::ios::binary);
            std::string const contents{std::istreambuf_iterator<char>(file), {}};
            if (!file) throw std::runtime_error("Can't read " + path);
            auto const found = LanguageCheck::ExtractKeys(path, contents, findings);
            used.insert(used.end(), found.begin(), found.end());
        }
    return used;
}

int Run(std::vector<std::string> arguments) {
    std::vector<LanguageCheck::Finding> findings;
    if (arguments.empty() || (arguments.front() == "--extract" && arguments.size() == 1)) {
        std::cerr << "usage: languagecheck DIRECTORY [FILE|DIRECTORY ...]\n"
                     "       languagecheck --extract FILE|DIRECTORY ...\n";
        return 2;
    }
    std::string const first = arguments.front();
    arguments.erase(arguments.begin());
    auto const used = KeysIn(arguments, findings);
    if (first == "--extract") {
        std::set<std::string> seen;
        for (auto const& use : used)
            if (seen.insert(use.key).second) std::cout << LanguageCheck::Folded(use.key) << '\n';
    } else {
        std::vector<LanguageCheck::KeyLine> keys;
        LanguageCheck::CheckFiles(first, keys, findings);
        LanguageCheck::CheckUse(used, keys, findings);
    }
    std::ostream& output = first == "--extract" ? std::cerr : std::cout;
    for (auto const& finding : findings)
        output << finding.file << ':' << finding.line << ": " << finding.text << '\n';
    return findings.empty() ? 0 : 1;
}

} // namespace

int main(int argumentCount, char** arguments) {
    try {
        return Run({arguments + 1, arguments + argumentCount});
    } catch (std::exception const& failure) {
        std::cerr << "languagecheck: " << failure.what() << '\n';
        return 2;
    }
}
