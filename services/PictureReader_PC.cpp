#include "services/PictureReader_PC.h"

#include "Diagnostics/Sink.h"
#include "Utilities/Limits.h"
#include "Utilities/WholeFile.h"
#include "services/JpegReader_PC.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace GUI::PictureReader {

namespace {

constexpr char const* drawingFormat = "svg";
constexpr char const* drawingEnding = ".svg";
constexpr char const* tooManyScans = "it has too many scans";

/// No picture, and the sink is told why.
QImage Refused(std::string const& path, std::string const& reason) {
    Diagnostics::Report("PictureReader", (path + ": the picture can't be shown: " + reason).c_str());
    return {};
}

bool IsAllowed(QSize size) {
    return size.isEmpty() ||
           static_cast<unsigned long>(size.width()) * static_cast<unsigned long>(size.height()) <=
               Utilities::Limits::Get().pixels;
}

QImage AsShown(QImage image) {
    if (image.isNull()) return image;
    bool const transparent = image.hasAlphaChannel();
    return std::move(image).convertToFormat(transparent ? QImage::Format_ARGB32_Premultiplied
                                                        : QImage::Format_RGB32);
}

/// The format by the file's first bytes: names often are, and the platform would ask each of its readers.
/// Empty for one that isn't told here.
char const* FormatOf(std::string_view file) {
    struct Signature {
        std::string_view bytes;
        char const* format;
    };
    using namespace std::string_view_literals;
    static constexpr std::array<Signature, 6> signatures{{{"\x89PNG\r\n\x1A\n"sv, "png"},
                                                          {"\xFF\xD8\xFF"sv, "jpeg"},
                                                          {"GIF8"sv, "gif"},
                                                          {"BM"sv, "bmp"},
                                                          {"II*\0"sv, "tiff"},
                                                          {"MM\0*"sv, "tiff"}}};
    auto const found = std::find_if(signatures.begin(), signatures.end(), [&](Signature const& signature) {
        return file.starts_with(signature.bytes);
    });
    return found == signatures.end() ? "" : found->format;
}

bool IsReadable(char const* format) {
    static auto const formats = QImageReader::supportedImageFormats();
    return formats.contains(format);
}

QImage ReadAs(char const* format, std::string_view file, std::string const& path) {
    if (*format && !IsReadable(format))
        return Refused(path, std::string("no reader of ") + format + " is installed");
    auto bytes = QByteArray::fromRawData(file.data(), static_cast<qsizetype>(file.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    if (*format) reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    if (!IsAllowed(reader.size()))
        return Refused(path, Utilities::Limits::Passed("pixels", Utilities::Limits::Get().pixels, "pixels"));
    QImage image = AsShown(reader.read());
    return image.isNull() ? Refused(path, reader.errorString().toStdString()) : image;
}

/// Where a JPEG says how it is to be turned; one that doesn't has no such block among its first.
bool MayBeTurned(std::string_view file) {
    constexpr std::size_t firstBlocks = 65536;
    return file.substr(0, firstBlocks).find("Exif") != std::string_view::npos;
}

std::string ReadFile(std::string const& path) {
    auto file = Utilities::ReadWholeFile(path, Utilities::Limits::Get().pictureBytes);
    if (file.state == Utilities::FileState::Unreadable)
        Refused(path, "the file can't be read, is too large or is no ordinary file");
    else if (file.state == Utilities::FileState::Read && file.contents.empty())
        Refused(path, "the file is empty");
    return std::move(file.contents);
}

} // namespace

bool IsAvailable() {
    // The readers of the other formats are separate packages. One that is missing is a matter of its format.
    return IsReadable("png");
}

QImage Read(std::string const& path) {
    std::string const file = ReadFile(path);
    return file.empty() ? QImage() : ReadBytes(file, path);
}

QImage ReadBytes(std::string const& bytes, std::string const& name) {
    if (bytes.size() > Utilities::Limits::Get().pictureBytes)
        return Refused(name, Utilities::Limits::Passed("pictureBytes", Utilities::Limits::Get().pictureBytes,
                                                       "bytes of a picture"));
    char const* const format = FormatOf(bytes);
    if (std::string_view(format) == "jpeg" && HasEndlessScans(bytes)) return Refused(name, tooManyScans);
    // Our own way to libjpeg is the faster one; it can't turn pictures and knows three components only.
    if (std::string_view(format) == "jpeg" && !MayBeTurned(bytes))
        if (QImage image = ReadJpeg(bytes); !image.isNull()) return image;
    return ReadAs(format, bytes, name);
}

QImage ReadScaled(std::string const& path, unsigned long width, unsigned long height) {
    constexpr unsigned long longestSide = 32767;
    if (width == 0 || height == 0 || width > longestSide || height > longestSide) return {};
    QSize const size(static_cast<int>(width), static_cast<int>(height));
    if (!IsAllowed(size)) return {};
    QImage const image = Read(path);
    return image.isNull() ? image : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage ReadBmp(std::string const& path) {
    std::string const file = ReadFile(path);
    return file.empty() ? QImage() : ReadAs("bmp", file, path);
}

bool IsDrawing(std::string const& path) { return path.ends_with(drawingEnding); }

QImage ReadDrawing(std::string const& path, double scale) {
    std::string const file = ReadFile(path);
    if (file.empty()) return {};
    if (!IsReadable(drawingFormat)) return Refused(path, "no reader of svg is installed");
    auto bytes = QByteArray::fromRawData(file.data(), static_cast<qsizetype>(file.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, drawingFormat);
    reader.setAutoDetectImageFormat(false);
    QSize const size = (QSizeF(reader.size()) * scale).toSize();
    if (!IsAllowed(size))
        return Refused(path, Utilities::Limits::Passed("pixels", Utilities::Limits::Get().pixels, "pixels"));
    reader.setScaledSize(size);
    QImage image = AsShown(reader.read());
    return image.isNull() ? Refused(path, reader.errorString().toStdString()) : image;
}

QImage ReadJpegFile(std::string const& path) {
    std::string const file = ReadFile(path);
    if (file.empty()) return {};
    if (HasEndlessScans(file)) return Refused(path, tooManyScans);
    QImage image = ReadJpeg(file);
    return image.isNull() ? Refused(path, "it is no whole JPEG of three components") : image;
}

} // namespace GUI::PictureReader
