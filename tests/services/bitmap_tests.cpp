#include "Diagnostics/Sink.h"
#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"
#include "services/Bitmap_PC.h"
#include "services/JpegReader_PC.h"
#include "services/MetaFileBitmap_PC.h"
#include "services/PictureReader_PC.h"
#include "tests/support/QtApplication.h"
#include "tests/support/TemporaryDirectory.h"

#include <QCoreApplication>
#include <QPainter>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

using GUI::Bitmap_PC;
using GUI::MetaFileBitmap_PC;
using GUI::RGBVector;
using Norvelian::Utilities::Exceptions::RuntimeException;
using Utilities::File;

auto* const application =
    testing::AddGlobalTestEnvironment(std::make_unique<Tests::QtApplication>().release());

File Picture(std::string const& name) { return File(std::string(NORVELIAN_TEST_DATA "/images/") + name); }

bool IsNear(RGBVector const& color, int red, int green, int blue, int tolerance) {
    return std::abs(color.GetRed() - red) <= tolerance && std::abs(color.GetGreen() - green) <= tolerance &&
           std::abs(color.GetBlue() - blue) <= tolerance;
}

/// What the exception says, or "nothing".
template <class Call> std::string TextOf(Call call) {
    try {
        call();
    } catch (RuntimeException const& failure) {
        return failure.what();
    }
    return "nothing";
}

/// The files that show one half red over the other blue; JPEG is off by a little.
constexpr char const* redOverBlue[] = {
    "rgb.jpg",   "progressive.jpg",     "cmyk.jpg",    "turned.jpg",      "jpeg-inside.png", "rgb.png",
    "deep.png",  "interlaced.png",      "palette.png", "rgb.gif",         "animated.gif",    "png-inside.jpg",
    "rgb.bmp",   "palette.bmp",         "rle.bmp",     "high-colour.bmp", "rgb.tif",         "lzw.tif",
    "pages.tif", "deep-big-endian.tif", "cmyk.tif"};

/// The most memory that the process has had, in MiB.
long PeakOfMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (long kib = 0; word == "VmPeak:" && status >> kib) return kib / 1024;
    return -1;
}

TEST(Bitmap, ADrawingIsSharpAtEveryScaleAndAnIconInTheToneOfTexts) {
    Tests::TemporaryDirectory const directory;
    std::string const path = directory.GetPath() + "/bar.svg";
    Bitmap_PC bitmap;
    for (auto const& [color, drawn] : {std::pair("#000", qRgb(0, 0, 200)), {"#a00", qRgb(170, 0, 0)}}) {
        std::ofstream(path) << R"(<svg xmlns="http://www.w3.org/2000/svg" width="8" height="8" fill=")"
                            << color << R"("><path d="M2.5 0h1v8h-1z"/></svg>)";
        ASSERT_TRUE(bitmap.Load(File(path)));
        EXPECT_EQ(bitmap.GetWidth(), 8U);
        QImage target(16, 16, QImage::Format_RGB32);
        target.setDevicePixelRatio(2);
        target.fill(Qt::white);
        QPainter painter(&target);
        bitmap.DrawInTone(0, 0, painter, QColor(0, 0, 200));
        painter.end();
        // From 5 to 7 at twice the size: no pixel is half covered.
        for (int x = 0; x < 16; ++x)
            EXPECT_EQ(target.pixel(x, 8), x == 5 || x == 6 ? drawn : qRgb(255, 255, 255)) << x;
    }
    EXPECT_FALSE(bitmap.Load(Picture("no-such.svg")));
}

TEST(Bitmap, LoadsEveryFormatAsAViewerShowsIt) {
    for (std::string const name : redOverBlue) {
        Bitmap_PC bitmap;
        ASSERT_TRUE(bitmap.Load(Picture(name))) << name;
        ASSERT_EQ(bitmap.GetWidth(), 6U) << name;
        ASSERT_EQ(bitmap.GetHeight(), 4U) << name;
        Bitmap_PC::Pixels pixels;
        bitmap.GetPixels(pixels);
        bool const isJpeg = name.find("jpg") != std::string::npos || name == "jpeg-inside.png";
        // The most that five bits hold is 248 to the platform's reader.
        int const tolerance = isJpeg ? 3 : name == "high-colour.bmp" ? 7 : 0;
        for (std::uint32_t x = 0; x < 6; ++x)
            for (std::uint32_t y = 0; y < 4; ++y)
                EXPECT_TRUE(IsNear(pixels[x][y], y < 2 ? 255 : 0, 0, y < 2 ? 0 : 255, tolerance))
                    << name << " at " << x << ", " << y;
    }
    for (char const* const name : {"grey.jpg", "grey-deep.png"}) {
        // Red is brighter than blue: 54 and 18 of 255 by their luminance.
        Bitmap_PC grey;
        ASSERT_TRUE(grey.Load(Picture(name))) << name;
        Bitmap_PC::Pixels pixels;
        grey.GetPixels(pixels);
        EXPECT_TRUE(IsNear(pixels[0][0], 54, 54, 54, 1)) << name;
        EXPECT_TRUE(IsNear(pixels[5][3], 18, 18, 18, 1)) << name;
    }
    Bitmap_PC wide;
    ASSERT_TRUE(wide.Load(Picture("wide.png")));
    EXPECT_EQ(wide.GetWidth(), 65500U);
}

TEST(Bitmap, AFileThatCannotBeShownChangesNothing) {
    Bitmap_PC bitmap;
    ASSERT_TRUE(bitmap.Load(Picture("rgb.png")));
    long const before = PeakOfMemory();
    for (char const* const name :
         {"truncated.png", "truncated.bmp", "empty.png", "text.png", "bomb.png", "bomb.bmp", "bomb.gif",
          "bomb.tif", "bomb-tiles.tif", "bomb-rgb.jpg", "bomb-grey.jpg", "bomb-progressive.jpg",
          "too-large.png", "missing.png", "", "MyBMP.png"}) {
        EXPECT_FALSE(bitmap.Load(Picture(name))) << name;
        EXPECT_EQ(bitmap.GetWidth(), 6U) << name;
    }
    EXPECT_TRUE(bitmap.Load(Picture("bomb-frame.gif"))) << "the frame is cut to its picture";
    EXPECT_LT(PeakOfMemory() - before, 16) << "what a file claims isn't taken";
    // The limit itself, and a JPEG that breaks off, which shows what there is of it.
    EXPECT_TRUE(bitmap.Load(Picture("largest.png")));
    EXPECT_EQ(bitmap.GetWidth() * bitmap.GetHeight(), Utilities::Limits::Get().pixels);
    EXPECT_TRUE(bitmap.Load(Picture("truncated.jpg")));
}

TEST(Bitmap, AJpegMayNotGoOverItsPictureForEver) {
    Tests::TemporaryDirectory const directory;
    std::string const path = directory / "scans.jpg";
    std::string const whole = Tests::ReadFile(Picture("progressive.jpg").GetPath());
    std::string const last = whole.substr(whole.rfind("\xFF\xDA"));
    for (int const more : {10, 100000}) {
        std::string text = whole.substr(0, whole.size() - 2);
        for (int i = 0; i < more; ++i) text.append(last, 0, last.size() - 2);
        Tests::WriteFile(path, text + "\xFF\xD9");
        for (bool const turned : {false, true}) {
            // The word sends it to the other reader.
            if (turned) Tests::WriteFile(path, text.insert(2, "\xFF\xFE" + std::string("\0\6Exif", 6)));
            Bitmap_PC bitmap;
            EXPECT_EQ(bitmap.Load(File(path)), more == 10) << turned;
            EXPECT_EQ(bitmap.LoadJpeg(File(path)), more == 10) << turned;
        }
    }
}

TEST(Bitmap, AFileMayEndAnywhere) {
    Tests::TemporaryDirectory const directory;
    std::string const path = directory / "part";
    testing::internal::CaptureStderr(); // where the libraries remark on each
    for (std::string const name : redOverBlue) {
        Tests::WriteFile(path, Tests::ReadFile(Picture(name).GetPath()));
        for (auto length = std::filesystem::file_size(path); length-- > 0;) {
            std::filesystem::resize_file(path, length);
            Bitmap_PC bitmap;
            bool const shown = bitmap.Load(File(path));
            EXPECT_EQ(bitmap.GetWidth() * bitmap.GetHeight(), shown ? 24U : 0U) << name << ", " << length;
        }
    }
    testing::internal::GetCapturedStderr();
}

TEST(Bitmap, LibjpegItselfTakesThreeComponentsOnly) {
    Bitmap_PC bitmap;
    EXPECT_FALSE(bitmap.LoadJpeg(Picture("grey.jpg")));
    EXPECT_FALSE(bitmap.LoadJpeg(Picture("cmyk.jpg")));
    EXPECT_FALSE(bitmap.LoadJpeg(Picture("rgb.png")));
    EXPECT_FALSE(bitmap.LoadJpeg(Picture("empty.png")));
    ASSERT_TRUE(bitmap.LoadJpeg(Picture("rgb.jpg")));
    EXPECT_TRUE(GUI::PictureReader::IsAvailable()) << "install the TIFF plug-in of the platform";
}

TEST(Bitmap, SaysWhyAFileCannotBeShown) {
    Tests::TemporaryDirectory const directory;
    ASSERT_EQ(::mkfifo((directory / "pipe.png").c_str(), 0600), 0);
    std::vector<std::string> reports;
    auto const former = Diagnostics::SetSink([&reports](auto const& /*where*/, auto const& what) {
        std::string const text = what.GetCharPointer();
        reports.push_back(text.substr(text.rfind('/') + 1));
    });
    Bitmap_PC bitmap;
    for (char const* const name : {"rgb.png", "missing.png", "text.png", "empty.png", "bomb.bmp"})
        bitmap.Load(Picture(name));
    bitmap.Load(File(directory / "pipe.png"));
    bitmap.LoadJpeg(Picture("grey.jpg"));
    Diagnostics::SetSink(former);
    std::string const cant = ": the picture can't be shown: ";
    EXPECT_THAT(reports,
                testing::ElementsAre(
                    "text.png" + cant + "Unsupported image format", "empty.png" + cant + "the file is empty",
                    testing::StartsWith("bomb.bmp" + cant),
                    "pipe.png" + cant + "the file can't be read, is too large or is no ordinary file",
                    "grey.jpg" + cant + "it is no whole JPEG of three components"));
}

TEST(Bitmap, OneMissingReaderTakesNoOtherFormatAway) {
    // In a process of its own, since the platform looks for its readers once.
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            QCoreApplication::setLibraryPaths({});
            Diagnostics::SetSink(
                [](auto const&, auto const& what) { std::fputs(what.GetCharPointer(), stderr); });
            Bitmap_PC bitmap;
            bool const right = bitmap.Load(Picture("rgb.png")) && bitmap.Load(Picture("rgb.jpg")) &&
                               !bitmap.Load(Picture("rgb.tif"));
            std::_Exit(right ? 0 : 1);
        },
        testing::ExitedWithCode(0), "rgb.tif: the picture can't be shown: no reader of tiff is installed");
}

TEST(Bitmap, LoadsAtAnySizeWithinLimits) {
    Bitmap_PC bitmap;
    ASSERT_TRUE(bitmap.LoadAndResize(Picture("rgb.jpg"), 60, 20));
    EXPECT_EQ(bitmap.GetWidth(), 60U);
    EXPECT_EQ(bitmap.GetHeight(), 20U);
    for (auto const& [width, height] :
         {std::pair{0UL, 5UL}, {5UL, 0UL}, {40000UL, 5UL}, {30000UL, 30000UL}}) {
        EXPECT_FALSE(bitmap.LoadAndResize(Picture("rgb.jpg"), width, height));
        EXPECT_FALSE(bitmap.Create(width == 40000 ? 70000 : width, height));
    }
    EXPECT_EQ(bitmap.GetWidth(), 60U);
}

TEST(Bitmap, IsDrawnIntoAndReadBack) {
    Bitmap_PC bitmap;
    EXPECT_EQ(bitmap.GetWidth(), 0U);
    EXPECT_EQ(TextOf([&] { bitmap.BeginDraw(); }), "Bitmap_PC::BeginDraw(): Can't select bitmap object.");
    ASSERT_TRUE(bitmap.Create(5, 4));
    auto& context = bitmap.BeginDraw();
    EXPECT_EQ(TextOf([&] { bitmap.BeginDraw(); }),
              "Bitmap_PC::BeginDraw() called twice, without calling EndDraw between.");
    EXPECT_FALSE(bitmap.Load(Picture("rgb.png"))) << "it is being drawn into";
    context.SetPen(RGBVector(1, 2, 3), 1, 0);
    context.SetBrush(RGBVector(9, 8, 7));
    context.FillRectangle(1, 1, 4, 4);
    bitmap.EndDraw();
    EXPECT_EQ(TextOf([&] { bitmap.EndDraw(); }),
              "Bitmap_PC::EndDraw() called without calling BeginDraw before.");
    Bitmap_PC::Pixels pixels;
    bitmap.GetPixels(pixels);
    ASSERT_EQ(pixels.GetSize(), 5U);
    ASSERT_EQ(pixels[0].GetSize(), 4U);
    EXPECT_EQ(pixels[0][0], RGBVector(0, 0, 0));
    EXPECT_EQ(pixels[1][1], RGBVector(1, 2, 3));
    EXPECT_EQ(pixels[2][2], RGBVector(9, 8, 7));
    QImage const shared = bitmap.GetBitmap();
    QRgb const before = shared.pixel(2, 2);
    bitmap.BeginDraw().FillRectangle(1, 1, 4, 4);
    bitmap.EndDraw();
    EXPECT_EQ(shared.pixel(2, 2), before) << "a copy stays as it is";
    { // is destroyed open
        Bitmap_PC open;
        open.Create(1, 1);
        open.BeginDraw();
    }
}

TEST(Bitmap, IsDrawnOnASurface) {
    QImage target(20, 20, QImage::Format_RGB32);
    target.fill(Qt::white);
    QPainter painter(&target);
    Bitmap_PC bitmap;
    EXPECT_EQ(TextOf([&] { bitmap.DrawBitmap(0, 0, painter); }),
              "Bitmap_PC::DrawBitmap(): Bitmap object is empty.");
    ASSERT_TRUE(bitmap.Load(Picture("rgb.bmp")));
    bitmap.DrawBitmap(2, 3, painter);
    EXPECT_EQ(target.pixel(2, 3), qRgb(255, 0, 0));
    EXPECT_EQ(target.pixel(7, 6), qRgb(0, 0, 255));
    EXPECT_EQ(target.pixel(8, 6), qRgb(255, 255, 255));
    Bitmap_PC alpha;
    ASSERT_TRUE(alpha.Load(Picture("alpha.png")));
    alpha.DrawBitmap(10, 10, painter);
    EXPECT_NEAR(qGreen(target.pixel(10, 10)), 128, 1) << "half of the white shows";
}

TEST(Bitmap, TakesThePictureMadeForDenseScreens) {
    QImage target(40, 40, QImage::Format_RGB32);
    target.setDevicePixelRatio(2);
    target.fill(Qt::white);
    QPainter painter(&target);
    Bitmap_PC bitmap;
    ASSERT_TRUE(bitmap.Load(Picture("rgb.png")));
    EXPECT_EQ(bitmap.GetWidth(), 6U);
    bitmap.DrawBitmap(1, 1, painter);
    EXPECT_EQ(target.pixel(2, 2), qRgb(0, 255, 0));
    EXPECT_EQ(target.pixel(13, 9), qRgb(0, 255, 0));
    EXPECT_EQ(target.pixel(14, 9), qRgb(255, 255, 255));
    bitmap.BeginDraw();
    bitmap.EndDraw();
    bitmap.DrawBitmap(1, 1, painter);
    EXPECT_EQ(target.pixel(2, 2), qRgb(255, 0, 0)) << "what was drawn into is the picture";
}

TEST(Bitmap, ListsFormatsInTheirOrder) {
    std::string text;
    auto const formats = Bitmap_PC().GetFileFormats();
    for (auto it = formats.Begin(); it.IsValid(); ++it)
        text += it.Current().first.GetStdString() + "." + it.Current().second.GetStdString() + " ";
    EXPECT_EQ(text, "Jpeg.jpg Bitmap.bmp GIF.gif TIFF.tif PNG.png All.png All.jpg All.bmp All.gif All.tif ");
}

TEST(MetaFileBitmap, IsReplayedAtAnySizeAndHoldsTheLastRecording) {
    QImage target(40, 40, QImage::Format_RGB32);
    target.fill(Qt::white);
    QPainter painter(&target);
    MetaFileBitmap_PC bitmap;
    bitmap.DrawBitmap(painter); // nothing is there to be played
    EXPECT_EQ(TextOf([&] { bitmap.EndDraw(); }),
              "MetaFileBitmap_PC::EndDraw() called without calling BeginDraw before.");
    for (int blue : {0, 255}) {
        auto& context = bitmap.BeginDraw();
        EXPECT_EQ(TextOf([&] { bitmap.BeginDraw(); }),
                  "MetaFileBitmap_PC::BeginDraw() called twice, without calling EndDraw between.");
        context.SetPen(RGBVector(0, 0, 0), 1, GUI::PlatformIndependentDeviceContext::noPen);
        context.SetBrush(RGBVector(0, 0, static_cast<unsigned char>(blue)));
        context.FillRectangle(static_cast<short>(blue == 0 ? 0 : 2), 2, 4, 4);
        bitmap.EndDraw();
    }
    bitmap.DrawBitmap(painter);
    EXPECT_EQ(target.pixel(1, 3), qRgb(255, 255, 255)) << "only the second recording";
    EXPECT_EQ(target.pixel(3, 3), qRgb(0, 0, 255));
    target.fill(Qt::white);
    painter.scale(8, 8);
    bitmap.DrawBitmap(painter);
    EXPECT_EQ(target.pixel(17, 17), qRgb(0, 0, 255));
    EXPECT_EQ(target.pixel(30, 30), qRgb(0, 0, 255));
    EXPECT_EQ(target.pixel(15, 17), qRgb(255, 255, 255));
    EXPECT_NE(bitmap.DetachHandle(), nullptr);
    EXPECT_EQ(bitmap.GetHandle(), nullptr);
}

} // namespace
