#include "Diagnostics/Sink.h"
#include "Utilities/CurrentLanguage.h"
#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "Utilities/ProgramDirectory.h"
#include "core/base/Exceptions.h"
#include "gui/elements/application/MessageService.h"
#include "gui/platform/TextConversion_PC.h"
#include "services/LanguageService.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/TemporaryDirectory.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Norvelian::Utilities::Exceptions::ResourceNotAvailableException;
using Utilities::LanguageService;
using Utilities::LanguageServiceInterface;
using Utilities::String;

class LanguageServiceTest : public testing::Test {
protected:
    LanguageServiceTest() { ::setenv("XDG_CONFIG_HOME", settings_.GetPath().c_str(), 1); }
    ~LanguageServiceTest() override { std::filesystem::remove_all(program_); }

    void Language(std::string const& file, std::string const& contents) const {
        Tests::WriteFile(program_ + "/Languages/" + file, contents);
    }
    static void Set(char const* key, char const* value) {
        Utilities::ResolveComponent<Utilities::Preferences>("Preferences")
            ->SetValue("LanguageService", key, value);
    }
    /// The text with which the first use fails.
    static std::string Failure(LanguageService& service) {
        try {
            service.GetTranslation("x");
        } catch (ResourceNotAvailableException const& failure) {
            return failure.what();
        }
        return "nothing was thrown";
    }

    Tests::TemporaryDirectory const settings_;
    std::string const program_ = Utilities::GetProgramDirectory();
};

TEST_F(LanguageServiceTest, TranslatesLineByLine) {
    Language("Languages.key",
             "\xEF\xBB\xBFV1\r\nOne\r\n\r\nTwo\\nlines\r\na<br>b\r\nOne more\r\nOnly key\r\n");
    Language("german.xy.lang", "V1\nEins\ndropped\nZwei\\nZeilen\nA<br>B\n\n");
    Set("Language", "German");
    LanguageService service;
    EXPECT_FALSE(service.IsLoaded());
    EXPECT_EQ(service.GetLanguage(), "German");
    EXPECT_EQ(Utilities::CurrentLanguage::GetLanguage(), "German");
    struct {
        char const* key;
        char const* translation;
        char const* keyBack;
    } const rows[] = {
        {"One", "Eins", "One"},
        {"one", "one", "one"},
        {"Two\nlines", "Zwei\nZeilen", "Two\nlines"},
        {"a<br>b", "A\nB", "A\nB"}, // a line break in place of "<br>" isn't found again
        {"One more", "", "One more"},
        {"Only key", "Only key", "Only key"},
        {"new<br>line", "new\nline", "new\nline"},
        {"dropped", "dropped", "dropped"},
        {"V1", "V1", "V1"},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(service.GetTranslation(row.key), row.translation) << row.key;
        EXPECT_EQ(service.GetKey(row.translation), row.keyBack) << row.key;
        EXPECT_EQ(LanguageServiceInterface::GetTranslation(row.key), row.translation);
    }
    service.SetMarkTexts(true);
    EXPECT_EQ(service.GetTranslation("One"), "[Eins]");
    EXPECT_EQ(service.GetTranslation("un<br>known"), "*un\nknown*");
    EXPECT_EQ(service.GetKey("[Eins]"), "One");
    EXPECT_EQ(service.GetKey("*unknown*"), "unknown");
    EXPECT_EQ(service.GetDescription(), Diagnostics::String("Version: V1, German"));
}

TEST_F(LanguageServiceTest, SwitchesAndTellsTheApplication) {
    Language("Languages.key", "1\nOne\n");
    Language("German.lang", "1\nEins\n");
    Language("French.lang", "1\nUn\n");
    std::vector<std::string> told;
    auto const messages = Utilities::ResolveComponent<GUI::MessageService>("MessageService");
    messages->SetCallback("LanguageChanged", Tests::MakeCallback([&](Utilities::Anything const& name) {
                              told.push_back(name.GetString());
                              return 0L;
                          }));
    LanguageService service;
    EXPECT_EQ(service.GetTranslation("One"), "One") << "English needs no file";
    auto const languages = service.GetLanguages();
    ASSERT_EQ(languages.GetSize(), 2U);
    EXPECT_EQ(languages[0], "French");
    EXPECT_EQ(languages[1], "German");
    service.SetLanguage("German");
    EXPECT_EQ(service.GetTranslation("One"), "Eins");
    EXPECT_THROW(service.SetLanguage("german"), OutOfRangeException);
    EXPECT_EQ(service.GetLanguage(), "German");
    service.SetLanguage("German");
    service.SetLanguage("French");
    service.SetMarkTexts(true);
    service.SetMarkTexts(true);
    EXPECT_EQ(told, (std::vector<std::string>{"German", "French", "French"}));
    messages->RemoveCallback("LanguageChanged");
    EXPECT_EQ(Utilities::ResolveComponent<Utilities::Preferences>("Preferences")
                  ->GetValue("LanguageService", "Language", "none"),
              "none");
}

TEST_F(LanguageServiceTest, FilesInWindows1252AndInUtf8ShowTheSame) {
    Language("Languages.key", "1\nOne\nTwo\n");
    Language("Bytes.lang", "1\nGr\xFC\xDF"
                           "e\x85\nf\xFCr 5 \x80\n");
    Language("Utf.lang", "\xEF\xBB\xBF\x31\nGr\u00FC\u00DFe\u2026\nf\u00FCr 5 \u20AC\n");
    LanguageService service;
    for (char const* const name : {"Bytes", "Utf"}) {
        service.SetLanguage(name);
        EXPECT_EQ(GUI::ToPlatformText(service.GetTranslation("One")),
                  QString::fromUtf8("Gr\u00FC\u00DFe\u2026"))
            << name;
        EXPECT_EQ(GUI::ToPlatformText(service.GetTranslation("Two")), QString::fromUtf8("f\u00FCr 5 \u20AC"))
            << name;
    }
}

TEST_F(LanguageServiceTest, AnEmptySettingTakesTheFirstLanguageThatIsGood) {
    Language("Languages.key", "2\nOne\n");
    Language("Albanian.lang", "1\nNje\n");
    Language("Basque.lang", "2\nBat\n");
    Language("Czech.lang", "2\nJedna\n");
    Set("Language", "");
    LanguageService service;
    EXPECT_EQ(service.GetLanguage(), "");
    EXPECT_EQ(Failure(service), R"(Version conflict in Languagefiles!

Keyfile = Languages.key : Version = "2"
Languagefile = Albanian.lang : Version = "1"

Translations for this language are not taken!

)");
    EXPECT_EQ(service.GetTranslation("One"), "Bat") << "reported once, the others are usable";
    EXPECT_EQ(service.GetLanguages().GetSize(), 2U);
    EXPECT_THROW(service.SetLanguage("Albanian"), OutOfRangeException);
}

TEST_F(LanguageServiceTest, AStaleFileOfAnotherLanguageLeavesNoTextUntranslated) {
    Language("Languages.key", "2\nOne\n");
    Language("Albanian.lang", "1\nNje\n");
    Language("Basque.lang", "2\nBat\n");
    Set("Language", "Basque");
    LanguageService const service;
    std::string reported;
    auto const former =
        Diagnostics::SetSink([&](auto const&, auto const& what) { reported = what.GetCharPointer(); });
    EXPECT_EQ(LanguageServiceInterface::GetTranslation("One"), "Bat") << "the first text that is shown";
    Diagnostics::SetSink(former);
    EXPECT_NE(reported.find("Languagefile = Albanian.lang"), std::string::npos) << reported;
}

TEST_F(LanguageServiceTest, FindsEachOfManyKeysAndTheLastTranslationOfEach) {
    constexpr int count = 3000;
    std::string keys = "1\n";
    std::string texts = "1\n";
    auto const key = [](int i) {
        return std::to_string(i * 7919) + std::string(static_cast<std::size_t>(i % 23), 'k');
    };
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < count; ++i) {
            keys += key(i) + "\n";
            texts += "round " + std::to_string(round) + " of " + key(i) + "\n";
        }
    Language("Languages.key", keys);
    Language("English.lang", texts);
    LanguageService service;
    for (int i = 0; i < count; ++i) {
        std::string const translation = "round 1 of " + key(i);
        ASSERT_EQ(service.GetTranslation(key(i)), translation.c_str());
        ASSERT_EQ(service.GetTranslation(key(i) + "k"), (key(i) + "k").c_str());
    }
    EXPECT_EQ(service.GetKey("round 1 of 7919k"), "7919k");
}

TEST_F(LanguageServiceTest, SaysWhatIsMissing) {
    {
        LanguageService service;
        EXPECT_EQ(Failure(service),
                  "Could not initialize LanguageService!\n\nDirectory " + program_ + " missing!\n\n");
        EXPECT_TRUE(service.IsLoaded());
        EXPECT_EQ(service.GetTranslation("One"), "One");
    }
    Language("German.lang", "1\nEins\n");
    LanguageService service;
    EXPECT_EQ(Failure(service), "Could not initialize LanguageService!\n\nKeyfile missing\n");
    EXPECT_EQ(Failure(service), "nothing was thrown");
}

TEST_F(LanguageServiceTest, WritesHowOftenEachKeyWasAskedFor) {
    Language("Languages.key", "1\nOne\n");
    Set("Log", "TRUE");
    Set("Mark", "tRue");
    {
        LanguageService service;
        EXPECT_TRUE(service.GetMarkTexts());
        for (char const* const key : {"One", "unknown", "One"}) service.GetTranslation(key);
    }
    EXPECT_EQ(Tests::ReadFile(program_ + "/LanguageService.log"), "One\t2\nunknown\t1\n");
}

TEST_F(LanguageServiceTest, BearsFilesThatAreNoLanguageFiles) {
    Language("Languages.key", "1\nOne\n");
    Language("Empty.lang", "");
    Language("Binary.lang", std::string("1\n\0\xFF\xFE\0x", 8));
    Language("NoEnd.lang", "1\nEins");
    std::filesystem::create_directories(program_ + "/Languages/Directory.lang");
    LanguageService service;
    EXPECT_NE(Failure(service).find("Empty.lang : Version = \"\""), std::string::npos);
    EXPECT_EQ(service.GetLanguages().GetSize(), 2U);
    service.SetLanguage("NoEnd");
    EXPECT_EQ(service.GetTranslation("One"), "Eins");
    service.SetLanguage("Binary");
    EXPECT_EQ(service.GetTranslation("One").Length(), 6);
}

} // namespace
