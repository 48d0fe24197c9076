#include "services/clipboard/GatheredData_PC.h"

#include "Diagnostics/Sink.h"

#include <QBuffer>

namespace GUI {

namespace {

QByteArray Encode(QImage const& image, char const* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

/// In millimetres as on a screen of 96 dots an inch.
QByteArray EncodeDrawing(QImage const& image) {
    constexpr double millimetresAPixel = 25.4 / 96;
    auto const width = QByteArray::number(image.width());
    auto const height = QByteArray::number(image.height());
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"" +
           QByteArray::number(image.width() * millimetresAPixel) + "mm\" height=\"" +
           QByteArray::number(image.height() * millimetresAPixel) + "mm\" viewBox=\"0 0 " + width + ' ' +
           height + "\"><image width=\"" + width + "\" height=\"" + height +
           "\" xlink:href=\"data:image/png;base64," + Encode(image, "png").toBase64() + "\"/></svg>";
}

} // namespace

void GatheredData::AddPicture(QImage const& image) {
    picture_ = image;
    AddLater("image/png", [image] { return Encode(image, "png"); });
    AddLater("image/bmp", [image] { return Encode(image, "bmp"); });
    AddLater("image/svg+xml", [image] { return EncodeDrawing(image); });
}

bool GatheredData::hasFormat(QString const& type) const {
    return makers_.contains(type) || QMimeData::hasFormat(type);
}

QStringList GatheredData::formats() const {
    QStringList all = QMimeData::formats();
    for (auto const& [type, make] : makers_)
        if (!all.contains(type)) all.append(type);
    return all;
}

QVariant GatheredData::retrieveData(QString const& type, QMetaType preferred) const {
    // Within the program nothing needs to be encoded.
    if (type == "application/x-qt-image" && !picture_.isNull()) return picture_;
    auto const maker = makers_.find(type);
    if (maker == makers_.end()) return QMimeData::retrieveData(type, preferred);
    try {
        return maker->second();
    } catch (...) {
        Diagnostics::DropException("GatheredData::retrieveData");
        return {};
    }
}

} // namespace GUI
