#include "hosts/languagecheck/LanguageCheck.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace {

using namespace LanguageCheck;

std::vector<std::string> Texts(std::vector<Finding> const& findings, std::string const& directory) {
    std::vector<std::string> texts;
    for (auto const& finding : findings) {
        std::string file = finding.file;
        if (file.starts_with(directory)) file.erase(0, directory.size());
        texts.push_back(file + ":" + std::to_string(finding.line) + ": " + finding.text);
    }
    return texts;
}

TEST(LanguageCheck, NamesFileAndLineOfEachFault) {
    Tests::TemporaryDirectory const directory;
    std::vector<KeyLine> keys;
    std::vector<Finding> findings;
    CheckFiles(directory.GetPath(), keys, findings);
    Tests::WriteFile(directory / "Languages.key", "V1\nOne\n\nTwo\\nlines\nOne\nThree\n");
    CheckFiles(directory.GetPath(), keys, findings);
    Tests::WriteFile(directory / "Short.lang", "V1\nUn\n\nDeux");
    Tests::WriteFile(directory / "Old.lang", "V0\n");
    Tests::WriteFile(directory / "Good.lang", "V1\r\na\r\n\r\nb\r\na\r\nc\r\n");
    Tests::WriteFile(directory / "Mixed.lang", "V1\na\n\nGr\xFC\xDF\x85\na\nc\n");
    Tests::WriteFile(directory / "Wrong.lang", "V1\na\nx\n\na\nc\nd\n");
    CheckFiles(directory.GetPath(), keys, findings);
    std::string const twice = "/Languages.key:5: the key \"One\" is on line 2 already";
    EXPECT_EQ(Texts(findings, directory.GetPath()),
              (std::vector<std::string>{"/Languages.key:0: there is no key file", twice,
                                        ":0: there is no language file", twice,
                                        "/Mixed.lang:4: reads as UTF-8 in a file that isn't",
                                        "/Old.lang:1: the version \"V0\" differs from the key file's \"V1\"",
                                        "/Short.lang:5: there are 4 lines and the key file has 6",
                                        "/Wrong.lang:7: there are 7 lines and the key file has 6",
                                        "/Wrong.lang:3: a translation without a key is dropped",
                                        "/Wrong.lang:4: no translation of \"Two\\nlines\""}));
}

TEST(LanguageCheck, FindsTheTextsOfDescriptionsAndSources) {
    std::vector<Finding> findings;
    auto const rows = [&](std::string const& file, std::string const& contents) {
        std::vector<std::string> texts;
        for (auto const& use : ExtractKeys(file, contents, findings))
            texts.push_back(std::to_string(use.line) + ": " + Folded(use.key));
        return texts;
    };
    using Rows = std::vector<std::string>;
    EXPECT_EQ(rows("a.xml",
                   "<Window Caption=\"A &amp; B\">\n<Button\n  ElementName=\"x\"\n  ToolTipText='tip' "
                   "Caption=''/>\n</Window>"),
              (Rows{"1: A & B", "4: tip"}));
    EXPECT_TRUE(findings.empty());
    EXPECT_EQ(rows("b.xml", "<a>\n<b>\n</a>"), Rows{});
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].line, 3U);
    EXPECT_EQ(rows("c.cpp",
                   "GetTranslation(key);\nGetTranslation(\"one\");\nx(GetTranslation( \"t\\\"w\\n\"\n"
                   "  \"o\" ), GetTranslation(\"open\nGetTranslation(\"half\" + more)"),
              (Rows{"2: one", "3: t\"w\\no"}));

    std::vector<Finding> missing;
    CheckUse({{"f", 1, "known"}, {"f", 2, "new"}, {"g", 3, "new"}}, {{2, "known"}}, missing);
    EXPECT_EQ(Texts(missing, "/"), Rows{"f:2: there is no key \"new\""});
}

} // namespace
