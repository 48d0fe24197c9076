#include "services/JpegReader_PC.h"

#include "Utilities/Limits.h"

#include <csetjmp>
#include <cstdint>
#include <cstdio> // jpeglib.h needs FILE
#include <jpeglib.h>

namespace GUI {

namespace {

/// libjpeg's own handler ends the process. Ours jumps out of the decoder, so no frame between here and
/// there may hold an object with a destructor.
struct ErrorHandler {
    jpeg_error_mgr manager; // first, since libjpeg hands back a pointer to it
    std::jmp_buf escape;
};

[[noreturn]] void Escape(j_common_ptr decoder) {
    std::longjmp(reinterpret_cast<ErrorHandler*>(decoder->err)->escape, 1);
}

void Silence(j_common_ptr /*decoder*/) {}

/// Where the rows go; made once the size is known.
struct Target {
    QImage image;
    std::uint8_t* bits = nullptr;
    std::ptrdiff_t stride = 0;

    bool Make(JDIMENSION width, JDIMENSION height) {
        if (static_cast<unsigned long>(width) * height > Utilities::Limits::Get().pixels) return false;
        image = QImage(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
        bits = image.isNull() ? nullptr : image.bits();
        stride = image.bytesPerLine();
        return bits != nullptr;
    }
};

#ifndef JCS_EXTENSIONS
/// Plain libjpeg gives three bytes a pixel, red first; spread from the end, they fit in place.
void SpreadRow(std::uint8_t* row, JDIMENSION width) {
    for (JDIMENSION x = width; x-- > 0;) {
        std::uint8_t const red = row[3 * x];
        std::uint8_t const green = row[3 * x + 1];
        std::uint8_t const blue = row[3 * x + 2];
        reinterpret_cast<QRgb*>(row)[x] = qRgb(red, green, blue);
    }
}
#endif

bool Decode(jpeg_decompress_struct& decoder, ErrorHandler& errors, std::string_view file, Target& target) {
    if (setjmp(errors.escape) != 0) return false; // NOLINT(cert-err52-cpp): libjpeg knows no other way
    jpeg_create_decompress(&decoder);
    jpeg_mem_src(&decoder, reinterpret_cast<unsigned char const*>(file.data()), file.size());
    jpeg_read_header(&decoder, TRUE);
    if (decoder.num_components != 3 || !target.Make(decoder.image_width, decoder.image_height)) return false;
#ifdef JCS_EXTENSIONS
    decoder.out_color_space = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRX : JCS_EXT_XRGB;
#else
    decoder.out_color_space = JCS_RGB;
#endif
    jpeg_start_decompress(&decoder);
    while (decoder.output_scanline < decoder.output_height) {
        JSAMPROW row = target.bits + static_cast<std::ptrdiff_t>(decoder.output_scanline) * target.stride;
        jpeg_read_scanlines(&decoder, &row, 1);
#ifndef JCS_EXTENSIONS
        SpreadRow(row, decoder.output_width);
#endif
    }
    jpeg_finish_decompress(&decoder);
    return true;
}

} // namespace

bool HasEndlessScans(std::string_view file) {
    constexpr int mostScans = 200;
    constexpr unsigned startOfScan = 0xDA;
    constexpr unsigned endOfImage = 0xD9;
    int scans = 0;
    auto const byteAt = [file](std::size_t at) { return static_cast<unsigned char>(file[at]); };
    // From marker to marker: 0xFF and a code. Blocks tell their length; pixels follow a scan's.
    for (std::size_t at = 2;
         (at = file.find('\xFF', at)) != std::string_view::npos && at + 3 < file.size();) {
        unsigned const code = byteAt(at + 1);
        bool const isBlock = code >= 0xC0 && code != 0xFF && (code < 0xD0 || code > endOfImage);
        if (code == endOfImage) break;
        if (code == startOfScan && ++scans > mostScans) return true;
        at += isBlock ? 2U + byteAt(at + 2) * 256U + byteAt(at + 3) : code == 0xFF ? 1U : 2U;
    }
    return false;
}

QImage ReadJpeg(std::string_view file) {
    ErrorHandler errors{};
    jpeg_decompress_struct decoder{};
    decoder.err = jpeg_std_error(&errors.manager);
    errors.manager.error_exit = Escape;
    errors.manager.output_message = Silence;
    Target target;
    bool const good = Decode(decoder, errors, file, target);
    jpeg_destroy_decompress(&decoder);
    return good ? target.image : QImage();
}

} // namespace GUI
