// The services that elements ask for text and pictures, against floors measured in the same run.

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/ProgramDirectory.h"
#include "services/Bitmap_PC.h"
#include "services/ImageService.h"
#include "services/LanguageService.h"
#include "tests/support/TemporaryDirectory.h"

#include <QGuiApplication>
#include <QImage>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <jpeglib.h>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

using Utilities::String;

// ------------------------------------------------------------------ language

constexpr int keyCount = 10000;
constexpr int languageCount = 10;

/// 10 languages of 10 000 keys in the program's directory.
class Languages {
public:
    Languages() {
        std::string keyFile = "1\n";
        for (int i = 0; i < keyCount; ++i) {
            keys.push_back("Group " + std::to_string(i % 20) + " text " + std::to_string(i));
            keyFile += keys.back() + "\n";
        }
        std::string const directory = Utilities::GetProgramDirectory() + "/Languages/";
        Tests::WriteFile(directory + "Languages.key", keyFile);
        for (int language = 0; language < languageCount; ++language) {
            std::string text = "1\n";
            for (int i = 0; i < keyCount; ++i) text += Translation(language, i) + "\n";
            Tests::WriteFile(directory + "L" + std::to_string(language) + ".lang", text);
        }
        ::setenv("XDG_CONFIG_HOME", settings_.GetPath().c_str(), 1);
        std::shuffle(keys.begin(), keys.end(), std::mt19937(3)); // NOLINT(bugprone-random-generator-seed)
        keyNames.assign(keys.begin(), keys.end());
    }
    ~Languages() { std::filesystem::remove_all(Utilities::GetProgramDirectory() + "/Languages"); }
    Languages(Languages const&) = delete;
    Languages& operator=(Languages const&) = delete;

    static std::string Translation(int language, int key) {
        return "Translated into " + std::to_string(language) + " of " + std::to_string(key);
    }

    /// In shuffled order.
    std::vector<std::string> keys;
    std::vector<String> keyNames;

private:
    Tests::TemporaryDirectory settings_;
};

Languages const& SharedLanguages() {
    static Languages const languages;
    return languages;
}

void LanguageLookup(benchmark::State& state, std::size_t visited) {
    auto const& keys = SharedLanguages().keyNames;
    Utilities::LanguageService service;
    service.SetLanguage("L7");
    std::size_t at = 0;
    std::size_t translated = 0;
    for (auto _ : state) {
        String const text = Utilities::LanguageServiceInterface::GetTranslation(keys[at]);
        translated += text.GetCharPointer()[0] == 'T' ? 1U : 0U;
        if (++at == visited) at = 0;
    }
    if (translated != static_cast<std::size_t>(state.iterations())) state.SkipWithError("not translated");
}

void HashFind(benchmark::State& state, std::size_t visited) {
    auto const& keys = SharedLanguages().keys;
    std::unordered_map<std::string, std::string> map;
    for (std::string const& key : keys) map[key] = "Translated " + key;
    std::size_t at = 0;
    std::size_t found = 0;
    for (auto _ : state) {
        auto const entry = map.find(keys[at]);
        benchmark::DoNotOptimize(entry);
        found += entry != map.end() ? 1U : 0U;
        if (++at == visited) at = 0;
    }
    if (found != static_cast<std::size_t>(state.iterations())) state.SkipWithError("missed a key");
}

void LanguageLoad(benchmark::State& state) {
    SharedLanguages();
    for (auto _ : state) {
        Utilities::LanguageService service;
        service.Load();
        if (service.GetLanguages().GetSize() != languageCount) state.SkipWithError("not loaded");
    }
}

void ReadFilesOnly(benchmark::State& state) {
    SharedLanguages();
    for (auto _ : state) {
        std::size_t size = 0;
        for (auto const& entry :
             std::filesystem::directory_iterator(Utilities::GetProgramDirectory() + "/Languages"))
            size += Tests::ReadFile(entry.path()).size();
        if (size < keyCount * languageCount * 20U) state.SkipWithError("not read");
    }
}

// ------------------------------------------------------------------ pictures

constexpr int iconCount = 200;

/// 200 icons of 32 by 32 pixels with alpha in the program's directory, and a photograph's worth of JPEG.
class Pictures {
public:
    Pictures() {
        std::filesystem::create_directories(images);
        for (int i = 0; i < iconCount; ++i) {
            QImage icon(32, 32, QImage::Format_ARGB32);
            for (int y = 0; y < 32; ++y)
                for (int x = 0; x < 32; ++x)
                    icon.setPixel(x, y,
                                  qRgba(x * 8, y * 8, i,
                                        (x - 16) * (x - 16) + (y - 16) * (y - 16) < 240 ? 255 : x * 8));
            names.emplace_back("icon" + std::to_string(i));
            paths.push_back(images + "/icon" + std::to_string(i) + ".png");
            icon.save(QString::fromStdString(paths.back()));
        }
        QImage photograph(1920, 1080, QImage::Format_RGB32);
        std::mt19937 random(5); // NOLINT(bugprone-random-generator-seed): the same picture each time
        for (int y = 0; y < 1080; ++y)
            for (int x = 0; x < 1920; ++x) {
                int const grain = static_cast<int>(random() % 12U);
                photograph.setPixel(
                    x, y, qRgb(x * 255 / 1920, y * 243 / 1080 + grain, (x + y) * 240 / 3000 + grain));
            }
        photograph.save(QString::fromStdString(jpeg), "jpg", 90);
        // A listing counts as settled when the directory is older than a file system's clock is coarse.
        std::filesystem::last_write_time(images, std::filesystem::file_time_type::clock::now() -
                                                     std::chrono::hours(1));
    }
    ~Pictures() { std::filesystem::remove_all(images); }
    Pictures(Pictures const&) = delete;
    Pictures& operator=(Pictures const&) = delete;

    std::string images = Utilities::GetProgramDirectory() + "/images";
    std::vector<String> names;
    std::vector<std::string> paths;
    std::string jpeg = images + "/photograph.jpg";
};

Pictures const& SharedPictures() {
    static Pictures const pictures;
    return pictures;
}

void ImageCached(benchmark::State& state) {
    auto const& names = SharedPictures().names;
    GUI::ImageService service;
    for (String const& name : names) service.GetBitmap(name);
    std::size_t at = 0;
    std::size_t found = 0;
    for (auto _ : state) {
        auto const bitmap = service.GetBitmap(names[at]);
        found += bitmap.IsNull() ? 0U : 1U;
        if (++at == names.size()) at = 0;
    }
    if (found != static_cast<std::size_t>(state.iterations())) state.SkipWithError("no picture");
}

void ImageFind(benchmark::State& state) {
    auto const& names = SharedPictures().names;
    std::unordered_map<std::string, std::shared_ptr<int>> map;
    for (String const& name : names) map[name.GetStdString()] = std::make_shared<int>(1);
    std::size_t at = 0;
    int found = 0;
    for (auto _ : state) {
        auto const picture = map.find(names[at].GetStdString())->second;
        found += *picture;
        if (++at == names.size()) at = 0;
    }
    if (found == 0) state.SkipWithError("no picture");
}

void Icons(benchmark::State& state) {
    auto const& names = SharedPictures().names;
    for (auto _ : state) {
        GUI::ImageService service;
        for (String const& name : names)
            if (service.GetBitmap(name)->GetWidth() != 32) state.SkipWithError("not loaded");
    }
}

void IconsByImage(benchmark::State& state) {
    auto const& paths = SharedPictures().paths;
    for (auto _ : state)
        for (std::string const& path : paths)
            if (QImage(QString::fromStdString(path)).width() != 32) state.SkipWithError("not loaded");
}

void Jpeg(benchmark::State& state) {
    Utilities::File const file(SharedPictures().jpeg);
    for (auto _ : state) {
        GUI::Bitmap_PC bitmap;
        if (!bitmap.Load(file) || bitmap.GetWidth() != 1920) state.SkipWithError("not loaded");
    }
}

void JpegByImage(benchmark::State& state) {
    QString const path = QString::fromStdString(SharedPictures().jpeg);
    for (auto _ : state)
        if (QImage(path).width() != 1920) state.SkipWithError("not loaded");
}

/// To rows of three bytes from a standard source, with nothing else done.
void JpegByLibjpeg(benchmark::State& state) {
    std::string const path = SharedPictures().jpeg;
    for (auto _ : state) {
        std::FILE* const file = std::fopen(path.c_str(), "rb");
        jpeg_decompress_struct decoder{};
        jpeg_error_mgr errors{};
        decoder.err = jpeg_std_error(&errors);
        jpeg_create_decompress(&decoder);
        jpeg_stdio_src(&decoder, file);
        jpeg_read_header(&decoder, TRUE);
        jpeg_start_decompress(&decoder);
        std::size_t const stride = decoder.output_width * 3U;
        std::vector<unsigned char> pixels(stride * decoder.output_height);
        while (decoder.output_scanline < decoder.output_height) {
            JSAMPROW row = pixels.data() + decoder.output_scanline * stride;
            jpeg_read_scanlines(&decoder, &row, 1);
        }
        if (decoder.output_width != 1920) state.SkipWithError("not loaded");
        jpeg_finish_decompress(&decoder);
        jpeg_destroy_decompress(&decoder);
        std::fclose(file);
    }
}

void RegisterAll() {
    using benchmark::kMillisecond;
    using benchmark::RegisterBenchmark;
    RegisterBenchmark("language.lookup-10000/ours", LanguageLookup, keyCount);
    RegisterBenchmark("language.lookup-10000/floor:unordered_map-find", HashFind, keyCount);
    RegisterBenchmark("language.lookup-hot50/ours", LanguageLookup, 50);
    RegisterBenchmark("language.lookup-hot50/floor:unordered_map-find", HashFind, 50);
    RegisterBenchmark("language.load-10x10000/ours", LanguageLoad)->Unit(kMillisecond);
    RegisterBenchmark("language.load-10x10000/floor:read-files", ReadFilesOnly)->Unit(kMillisecond);
    RegisterBenchmark("image.cached-200/ours", ImageCached);
    RegisterBenchmark("image.cached-200/floor:unordered_map-find", ImageFind);
    RegisterBenchmark("image.icons-200/ours", Icons)->Unit(kMillisecond);
    RegisterBenchmark("image.icons-200/peer:QImage", IconsByImage)->Unit(kMillisecond);
    RegisterBenchmark("image.jpeg-1920x1080/ours", Jpeg)->Unit(kMillisecond);
    RegisterBenchmark("image.jpeg-1920x1080/floor:libjpeg", JpegByLibjpeg)->Unit(kMillisecond);
    RegisterBenchmark("image.jpeg-1920x1080/peer:QImage", JpegByImage)->Unit(kMillisecond);
}

} // namespace

int main(int argumentCount, char** arguments) {
    QGuiApplication const application(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    RegisterAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
