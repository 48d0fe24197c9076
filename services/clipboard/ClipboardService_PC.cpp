#include "services/clipboard/ClipboardService_PC.h"

#include "Utilities/Limits.h"
#include "Utilities/NamingService.h"
#include "core/creators/ComponentCreator.h"
#include "services/Bitmap_PC.h"
#include "services/PictureReader_PC.h"
#include "services/clipboard/ClipboardFormats_PC.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace GUI {

using Utilities::String;

namespace {

Utilities::ComponentCreatorSingleton<ClipboardService_PC> creator({"ClipboardService", "$Revision: 1.5 $",
                                                                   "GUI"});

/// The best first: other programs offer the same picture in several.
constexpr char const* pictureTypes[] = {"image/png",  "image/tiff", "image/bmp",    "image/x-bmp",
                                        "image/jpeg", "image/gif",  "image/svg+xml"};

QMimeData const* GetData() { return qApp ? QGuiApplication::clipboard()->mimeData() : nullptr; }

/// Empty for what is larger than is taken from outside.
std::string BytesOf(QMimeData const& data, QString const& type, std::size_t largest) {
    QByteArray const bytes = data.data(type);
    auto const size = static_cast<std::size_t>(bytes.size());
    return size > largest ? std::string() : std::string(bytes.constData(), size);
}

} // namespace

bool ClipboardService_PC::IsFormatAvailable(String const& format) {
    QMimeData const* const data = GetData();
    if (!data) return false;
    if (format == ClipboardFormats::text) return data->hasText();
    if (!(format == ClipboardFormats::bitmap)) return data->hasFormat(ClipboardFormats::MimeOf(format));
    return data->hasImage() || std::any_of(std::begin(pictureTypes), std::end(pictureTypes),
                                           [data](char const* type) { return data->hasFormat(type); });
}

String ClipboardService_PC::GetText(String const& format) {
    QMimeData const* const data = GetData();
    if (!data) return {};
    std::size_t const largest = Utilities::Limits::Get().sampleFileBytes;
    std::string text;
    if (format == ClipboardFormats::text)
        text = FromPlatformText(data->text()).GetStdString();
    else
        text = BytesOf(*data, ClipboardFormats::MimeOf(format), largest);
    if (text.size() > largest) return {};
    return text.substr(0, text.find('\0'));
}

Utilities::SmartPointer<Bitmap> ClipboardService_PC::GetBitmap() {
    return Utilities::ResolveComponent<Bitmap>("Bitmap");
}

Utilities::SmartPointer<Bitmap> ClipboardService_PC::ReadBitmap() {
    QMimeData const* const data = GetData();
    if (!data) return {};
    QImage image;
    bool isOffered = false;
    for (char const* const type : pictureTypes) {
        if (!image.isNull() || !data->hasFormat(type)) continue;
        isOffered = true;
        std::string const bytes = BytesOf(*data, type, Utilities::Limits::Get().pictureBytes);
        if (!bytes.empty()) image = PictureReader::ReadBytes(bytes, std::string("the clipboard's ") + type);
    }
    // Of this program's own there may be the picture alone. What was refused isn't decoded in another way.
    if (!isOffered && data->hasImage()) image = data->imageData().value<QImage>();
    auto bitmap = GetBitmap();
    auto* const target = dynamic_cast<Bitmap_PC*>(bitmap.Get());
    if (!target || !target->Attach(std::move(image))) return {};
    return bitmap;
}

} // namespace GUI
