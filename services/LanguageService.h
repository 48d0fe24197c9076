#pragma once

#include "Utilities/TranslationService.h"
#include "services/LanguageFiles.h"

#include <map>
#include <memory>
#include <string>

namespace Utilities {

/// The one place where text that a user sees is translated: the component "LanguageService".
///
/// Settings of the section "LanguageService": "Language" (default "English") is current at the start,
/// "Mark" decorates every text, "Log" writes the number of look-ups of each key to
/// "LanguageService.log" in the program's directory when the service dies. Files are read when the first
/// text is asked for, and once: a load that fails is not tried again.
class LanguageService : public TranslationService {
public:
    LanguageService();
    LanguageService(LanguageService const&) = delete;
    LanguageService& operator=(LanguageService const&) = delete;
    ~LanguageService() override;

    String GetTranslation(String const& key) override;
    void SetLanguage(String const& name) override;
    String GetLanguage() const override { return currentLanguage_; }
    Vector<String> GetLanguages() override;
    String GetKey(String const& text) override;
    void SetMarkTexts(bool mark) override;
    bool GetMarkTexts() const override { return markTexts_; }
    bool IsLoaded() const override { return loaded_; }
    void Load() override;

    /// "Version: ", the version, ", " and the current language.
    virtual Diagnostics::String GetDescription() const;
    virtual Diagnostics::String GetValueString() { return "LanguageService"; }

private:
    /// A map in the order of its keys, so that two logs can be compared.
    using UsageCounts = std::map<std::string, unsigned long>;

    LanguageTexts const* FindTexts() const;
    String Shown(String text, bool hasBreak, char const* before, char const* after) const;
    void SendChanged() const;
    void WriteLog() const;

    LanguageFiles files_;
    String currentLanguage_;
    /// The current language's texts, null if there are none; found again after each change.
    LanguageTexts const* currentTexts_ = nullptr;
    bool markTexts_ = false;
    bool loaded_ = false;
    std::unique_ptr<UsageCounts> usageCounts_;
    String lineBreak_;
};

} // namespace Utilities
