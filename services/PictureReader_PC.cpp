#include "services/PictureReader_PC.h"

#include "services/JpegReader_PC.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>
#include <array>

namespace GUI::PictureReader {

namespace {

bool IsAllowed(QSize size) {
    return size.isEmpty() ||
           static_cast<unsigned long>(size.width()) * static_cast<unsigned long>(size.height()) <=
               largestPicture / bytesPerPixel;
}

/// A pipe would wait for whoever writes into it.
bool IsFile(QString const& path) { return QFileInfo(path).isFile(); }

QImage AsShown(QImage image) {
    if (image.isNull()) return image;
    bool const transparent = image.hasAlphaChannel();
    return std::move(image).convertToFormat(transparent ? QImage::Format_ARGB32_Premultiplied
                                                        : QImage::Format_RGB32);
}

QImage ReadWith(QImageReader& reader) {
    reader.setAutoTransform(true);
    return IsAllowed(reader.size()) ? AsShown(reader.read()) : QImage();
}

} // namespace

bool IsAvailable() {
    static bool const available = [] {
        auto const formats = QImageReader::supportedImageFormats();
        std::array<char const*, 5> const wanted{"jpeg", "bmp", "gif", "tiff", "png"};
        return std::all_of(wanted.begin(), wanted.end(),
                           [&](char const* format) { return formats.contains(format); });
    }();
    return available;
}

QImage Read(QString const& path) {
    if (!IsFile(path)) return {};
    QImageReader reader(path);
    // Our own way to libjpeg is the faster one; it can't turn pictures and knows three components only.
    if (reader.format() == "jpeg" && reader.transformation() == QImageIOHandler::TransformationNone)
        if (QImage image = ReadJpegFile(path); !image.isNull()) return image;
    return ReadWith(reader);
}

QImage ReadScaled(QString const& path, unsigned long width, unsigned long height) {
    constexpr unsigned long longestSide = 32767;
    if (width == 0 || height == 0 || width > longestSide || height > longestSide) return {};
    QSize const size(static_cast<int>(width), static_cast<int>(height));
    if (!IsAllowed(size)) return {};
    QImage const image = Read(path);
    return image.isNull() ? image : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage ReadBmp(QString const& path) {
    if (!IsFile(path)) return {};
    QImageReader reader(path, "bmp");
    reader.setAutoDetectImageFormat(false);
    return ReadWith(reader);
}

QImage ReadJpegFile(QString const& path) {
    QFile file(path);
    if (!IsFile(path) || !file.open(QIODevice::ReadOnly) ||
        static_cast<unsigned long>(file.size()) > largestPicture)
        return {};
    return ReadJpeg(file.readAll());
}

} // namespace GUI::PictureReader
