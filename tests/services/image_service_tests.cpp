#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "Utilities/ProgramDirectory.h"
#include "services/Bitmap_PC.h"
#include "services/ImageService.h"
#include "tests/support/QtApplication.h"
#include "tests/support/TemporaryDirectory.h"

#include <QImage>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace {

using GUI::Bitmap;
using GUI::Bitmap_PC;
using GUI::ImageService;
using GUI::RGBVector;
using Utilities::String;

auto* const application =
    testing::AddGlobalTestEnvironment(std::make_unique<Tests::QtApplication>().release());

class ImageServiceTest : public testing::Test {
protected:
    ImageServiceTest() { ::setenv("XDG_CONFIG_HOME", settings_.GetPath().c_str(), 1); }
    ~ImageServiceTest() override { std::filesystem::remove_all(Utilities::GetProgramDirectory()); }

    /// A picture of that width, by which it is told from others.
    void Image(std::string const& path, int width) const {
        std::filesystem::path const file = images_ + path;
        std::filesystem::create_directories(file.parent_path());
        QImage image(width, 10, QImage::Format_RGB32);
        image.fill(Qt::white);
        ASSERT_TRUE(image.save(QString::fromStdString(file.string())));
    }
    static unsigned long WidthOf(ImageService& service, char const* name) {
        auto const bitmap = service.GetBitmap(name);
        return bitmap.IsNull() ? 0 : bitmap->GetWidth();
    }
    static void Set(char const* section, char const* key, char const* value) {
        Utilities::ResolveComponent<Utilities::Preferences>("Preferences")->SetValue(section, key, value);
    }

    Tests::TemporaryDirectory const settings_;
    std::string const images_ = Utilities::GetProgramDirectory() + "/images/";
};

// The one language service of the process takes its language from the settings of this first test.
TEST_F(ImageServiceTest, LooksInImagesThenInTheLanguageThenInEnglish) {
    Set("LanguageService", "Language", "German");
    Image("Root.png", 1);
    Image("German/Root.png", 2);
    Image("German/Local.png", 3);
    Image("English/Local.png", 4);
    Image("English/Base.bmp", 5);
    Image("UnknownBitmap.png", 6);
    Image("Two.bmp", 7);
    Image("Two.png", 8);
    Image("case.png", 9);
    Image("Case.png", 11);
    ImageService service;
    EXPECT_EQ(WidthOf(service, "Root"), 1U);
    EXPECT_EQ(WidthOf(service, "Local"), 3U);
    EXPECT_EQ(WidthOf(service, "Base"), 5U);
    EXPECT_EQ(WidthOf(service, "Two"), 7U);
    EXPECT_EQ(WidthOf(service, "case"), 9U);
    EXPECT_EQ(WidthOf(service, "Case"), 11U);
    EXPECT_EQ(WidthOf(service, "ROOT"), 1U);
    for (char const* const nowhere : {"Missing", "", "../images/Root", "Root.png", "*"})
        EXPECT_EQ(WidthOf(service, nowhere), 6U) << nowhere;
    EXPECT_EQ(service.GetBitmap("Missing").Get(), service.GetBitmap("Other").Get());

    auto const kept = service.GetBitmap("Root");
    service.SetBitmap("Base", kept);
    Image("German/Local.png", 12);
    EXPECT_EQ(WidthOf(service, "Local"), 3U);
    service.OnLanguageChanged();
    EXPECT_EQ(WidthOf(service, "Local"), 12U) << "a language's picture is looked for again";
    EXPECT_EQ(service.GetBitmap("Root").Get(), kept.Get());
    EXPECT_EQ(service.GetBitmap("Base").Get(), kept.Get()) << "one made at run time isn't a language's";
}

TEST_F(ImageServiceTest, KeepsWhatItLoadedAndNotWhatItMissed) {
    Image("A.png", 1);
    ImageService service;
    EXPECT_TRUE(service.GetBitmap("UnknownBitmap").IsNull());
    EXPECT_TRUE(service.GetBitmap("B").IsNull());
    auto const kept = service.GetBitmap("A");
    std::filesystem::remove(images_ + "A.png");
    EXPECT_EQ(service.GetBitmap("A").Get(), kept.Get());
    Image("B.png", 2);
    EXPECT_EQ(WidthOf(service, "B"), 2U) << "looked for again";
    Image("UnknownBitmap.png", 3);
    EXPECT_TRUE(service.GetBitmap("UnknownBitmap").IsNull()) << "null is kept for this name";
    EXPECT_TRUE(service.PrepareForUnload());
    EXPECT_EQ(WidthOf(service, "A"), 3U);
    EXPECT_EQ(kept->GetWidth(), 1U);

    service.SetBitmap("Made", kept);
    EXPECT_EQ(service.GetBitmap("Made").Get(), kept.Get());
    Tests::WriteFile(images_ + "Text.png", "no picture");
    EXPECT_TRUE(service.GetBitmap("Text").IsNull());
    Image("Text.png", 4);
    EXPECT_EQ(WidthOf(service, "Text"), 4U) << "a failure isn't kept";
}

TEST_F(ImageServiceTest, WithoutADirectoryThereIsNothing) {
    ImageService service;
    EXPECT_TRUE(service.GetBitmap("A").IsNull());
    Image("A.png", 1);
    EXPECT_EQ(WidthOf(service, "A"), 1U);
}

TEST_F(ImageServiceTest, MarksShowTheSearchLevelAndNamesTheFile) {
    Set("ImageService", "Mark", "TRUE");
    Image("Root.png", 10);
    Image("German/Local.png", 10);
    Image("English/Base.png", 10);
    ImageService service;
    for (auto const& [name, color] : {std::pair{"Root", RGBVector(0, 0, 255)},
                                      {"Local", RGBVector(0, 255, 0)},
                                      {"Base", RGBVector(255, 0, 0)}}) {
        Bitmap::Pixels pixels;
        service.GetBitmap(name)->GetPixels(pixels);
        EXPECT_EQ(pixels[0][0], color) << name;
        EXPECT_EQ(pixels[4][4], color) << name << ": the cross";
        EXPECT_EQ(pixels[9][9], color) << name;
        EXPECT_EQ(pixels[2][5], RGBVector(255, 255, 255)) << name;
    }
    Set("ImageService", "Mark", "no");
    Set("ImageService", "ShowFileNames", "true");
    Image("Root.png", 60);
    ImageService naming;
    Bitmap::Pixels pixels;
    naming.GetBitmap("Root")->GetPixels(pixels);
    int written = 0;
    for (auto const& column : pixels)
        for (RGBVector const& pixel : column) written += pixel == RGBVector(255, 255, 255) ? 0 : 1;
    EXPECT_GT(written, 0);
}

} // namespace
