// Picture files through `Load`: as a Windows bitmap, as JPEG, or as whatever they are, by the first byte.

#include "Utilities/Limits.h"
#include "services/Bitmap_PC.h"
#include "services/JpegReader_PC.h"
#include "tests/support/TemporaryDirectory.h"

#include <QGuiApplication>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void MakeApplication() {
    static int count = 1;
    static std::array<char, 5> name{"fuzz"};
    static std::array<char*, 2> arguments{name.data(), nullptr};
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static QGuiApplication const application(count, arguments.data());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    MakeApplication();
    static Tests::TemporaryDirectory const directory;
    if (size == 0) return 0;
    static std::array<char const*, 3> const names{"a.bmp", "a.jpg", "a.any"};
    std::string const path = directory / names[data[0] % names.size()];
    Tests::WriteFile(path, std::string(reinterpret_cast<char const*>(data) + 1, size - 1));
    GUI::Bitmap_PC bitmap;
    Utilities::File const file(path);
    bool const loaded = data[0] % names.size() == 1 ? bitmap.LoadJpeg(file) : bitmap.Load(file);
    if (loaded && bitmap.GetWidth() * bitmap.GetHeight() > Utilities::Limits::Get().pixels) std::abort();
    // Pixels are read back, so that one that was never written shows under the memory sanitizer.
    if (loaded && bitmap.GetWidth() * bitmap.GetHeight() < 10000) {
        GUI::Bitmap::Pixels pixels;
        bitmap.GetPixels(pixels);
    }
    return 0;
}
