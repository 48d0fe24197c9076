#include "services/LanguageService.h"

#include "Diagnostics/Sink.h"
#include "Utilities/CurrentLanguage.h"
#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "core/base/Exceptions.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/application/MessageService.h"

#include <algorithm>
#include <exception>

namespace Utilities {

namespace {

ComponentCreatorSingleton<LanguageService> creator({"LanguageService", "$Revision: 1.35 $", "Utilities"});

constexpr char const* section = "LanguageService";
constexpr char const* breakTag = "<br>";

bool IsTrue(Preferences& preferences, char const* key) {
    return preferences.GetValue(section, key, "false").GetAsLower() == "true";
}

} // namespace

LanguageService::LanguageService() {
    try {
        auto const preferences = ResolveComponent<Preferences>("Preferences");
        if (IsTrue(*preferences, "Log")) usageCounts_ = std::make_unique<UsageCounts>();
        markTexts_ = IsTrue(*preferences, "Mark");
        currentLanguage_ = preferences->GetValue(section, "Language", "English");
        CurrentLanguage::SetLanguage(currentLanguage_);
    } catch (...) {
        Diagnostics::DropException("LanguageService: construction");
        usageCounts_.reset();
        markTexts_ = false;
        currentLanguage_ = {};
    }
    lineBreak_ = "\n";
}

LanguageService::~LanguageService() {
    if (!usageCounts_) return;
    try {
        WriteLog();
    } catch (...) {
        Diagnostics::DropException("LanguageService: usage log");
    }
}

String LanguageService::GetTranslation(String const& key) {
    if (usageCounts_) ++(*usageCounts_)[key.GetStdString()];
    if (!loaded_) Load();
    auto const found = currentTexts_ ? currentTexts_->Find(key) : std::nullopt;
    if (found) return Shown(String(found->translation), found->hasBreak, "[", "]");
    return Shown(key, true, "*", "*");
}

String LanguageService::Shown(String text, bool hasBreak, char const* before, char const* after) const {
    if (hasBreak) text.Replace(breakTag, lineBreak_);
    if (markTexts_) text = String(before) + text + after;
    return text;
}

void LanguageService::SetLanguage(String const& name) {
    if (!loaded_) Load();
    if (!files_.GetLanguages().contains(name.GetStdString()))
        throw Norvelian::Utilities::Exceptions::OutOfRangeException("Language not available");
    if (name == currentLanguage_) return;
    currentLanguage_ = name;
    currentTexts_ = FindTexts();
    SendChanged();
}

Vector<String> LanguageService::GetLanguages() {
    if (!loaded_) Load();
    Vector<String> names(static_cast<std::uint32_t>(files_.GetLanguages().size()));
    std::transform(files_.GetLanguages().begin(), files_.GetLanguages().end(), names.begin(),
                   [](auto const& language) { return String(language.first); });
    return names;
}

String LanguageService::GetKey(String const& text) {
    if (!loaded_) Load();
    String plain = markTexts_ ? text.Mid(1, text.Length() - 2) : text;
    for (std::size_t i = 0; currentTexts_ && i < currentTexts_->GetCount(); ++i)
        if (auto const known = currentTexts_->Get(i); known.translation == plain.GetStdString())
            return String(known.key);
    return plain;
}

void LanguageService::SetMarkTexts(bool mark) {
    if (mark == markTexts_) return;
    markTexts_ = mark;
    SendChanged();
}

void LanguageService::Load() {
    if (loaded_) return;
    loaded_ = true;
    std::exception_ptr failure;
    try {
        files_.Read(*Directory::NewInstance(Directory::programDirectory, ""));
    } catch (...) {
        failure = std::current_exception();
    }
    // What could be read is usable, whatever else went wrong.
    auto const& order = files_.GetOrder();
    if (currentLanguage_ == "" && !order.empty()) currentLanguage_ = order.front();
    currentTexts_ = FindTexts();
    if (failure) std::rethrow_exception(failure);
}

LanguageTexts const* LanguageService::FindTexts() const {
    auto const language = files_.GetLanguages().find(currentLanguage_.GetStdString());
    return language == files_.GetLanguages().end() ? nullptr : &language->second;
}

void LanguageService::SendChanged() const {
    if (!NamingService::Instance()->IsRegistered("MessageService")) return;
    ResolveComponent<GUI::MessageService>("MessageService")->SendMessage(changedMessage, currentLanguage_);
}

void LanguageService::WriteLog() const {
    File log(Directory::NewInstance(Directory::programDirectory, "")->GetPath() + "/LanguageService.log");
    log.Create();
    for (auto const& [key, count] : *usageCounts_) log.Write(String(key) + "\t" + String(count) + "\n");
    log.Close();
}

Diagnostics::String LanguageService::GetDescription() const {
    Diagnostics::String text("Version: ");
    text += files_.GetVersion().GetValueString();
    text += ", ";
    text += currentLanguage_.GetValueString();
    return text;
}

} // namespace Utilities
