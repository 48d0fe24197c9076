#include "services/LanguageFiles.h"

#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace Utilities {

using Norvelian::Utilities::Exceptions::ResourceNotAvailableException;
using Norvelian::Utilities::Exceptions::TraceableException;

namespace {

/// Both files are read line by line, and a line may be all of a file.
void RequireSize(File const& file) {
    std::error_code failure;
    auto const most = Limits::Get().languageBytes;
    if (std::filesystem::file_size(file.GetPath().GetStdString(), failure) > most && !failure)
        throw ResourceNotAvailableException(file.GetPath().GetStdString() + ": " +
                                            Limits::Passed("languageBytes", most, "bytes"));
}

constexpr char const* failed = "Could not initialize LanguageService!\n\n";

} // namespace

std::string LanguageFiles::LanguageName(File const& file) {
    std::string const fileName = file.GetName();
    std::string const stem = fileName.substr(0, fileName.find('.'));
    return String(stem.substr(0, 1)).GetAsUpper().GetStdString() +
           stem.substr(std::min<std::size_t>(1, stem.size()));
}

String LanguageFiles::Unfolded(String line) {
    line.Replace("\\n", "\n");
    return line;
}

void LanguageFiles::Read(Directory const& parent) {
    std::string failure;
    try {
        auto const directories = parent.GetSubDirectories("Languages");
        if (directories.GetSize() == 0) {
            failure = failed + ("Directory " + parent.GetPath().GetStdString()) + " missing!\n\n";
        } else {
            auto const keyFiles = directories[0]->GetFiles("Languages", "key");
            if (keyFiles.GetSize() == 0) throw ResourceNotAvailableException("Keyfile missing");
            for (File const& languageFile : directories[0]->GetFiles("*", "lang"))
                ReadLanguage(keyFiles[0], languageFile, failure);
        }
    } catch (TraceableException const& caught) {
        failure = failed + std::string(caught.what()) + "\n";
    } catch (...) {
        failure = failed;
    }
    if (!failure.empty()) throw ResourceNotAvailableException(failure);
}

void LanguageFiles::ReadLanguage(File keyFile, File languageFile, std::string& conflicts) {
    RequireSize(keyFile);
    RequireSize(languageFile);
    keyFile.Open();
    languageFile.Open();
    version_ = keyFile.ReadLine();
    String const languageVersion = languageFile.ReadLine();
    if (!(version_ == languageVersion)) {
        conflicts += "Version conflict in Languagefiles!\n\n";
        conflicts += "Keyfile = " + keyFile.GetName().GetStdString() + " : Version = \"" +
                     version_.GetStdString() + "\"\n";
        conflicts += "Languagefile = " + languageFile.GetName().GetStdString() + " : Version = \"" +
                     languageVersion.GetStdString() + "\"\n\n";
        conflicts += "Translations for this language are not taken!\n\n";
        return;
    }
    std::string const name = LanguageName(languageFile);
    auto const [language, isNew] = languages_.try_emplace(name);
    if (isNew) order_.push_back(name);
    while (!keyFile.IsAtEnd() && !languageFile.IsAtEnd()) {
        String key = keyFile.ReadLine();
        String translation = languageFile.ReadLine();
        if (key.Length() == 0) continue;
        language->second.Set(Unfolded(std::move(key)), Unfolded(std::move(translation)));
    }
}

} // namespace Utilities
