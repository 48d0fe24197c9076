#include "gui/platform/DropDataObject_PC.h"

#include "gui/elements/colour/RGBVector.h"
#include "gui/platform/TextConversion_PC.h"

#include <QColor>
#include <QUrl>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

bool DropDataObject_PC::HasFormat(String const& format) const {
    return data_.hasFormat(ToPlatformText(format));
}

Anything DropDataObject_PC::GetData(String const& format) const {
    if (!HasFormat(format)) return {};
    if (format == "text/uri-list") {
        auto const urls = data_.urls();
        Anything::VectorOfAnythings files(static_cast<std::uint32_t>(urls.size()));
        for (std::uint32_t i = 0; i < files.GetSize(); ++i) {
            QUrl const& url = urls[static_cast<qsizetype>(i)];
            files[i] = FromPlatformText(url.isLocalFile() ? url.toLocalFile() : url.toString());
        }
        return {files};
    }
    if (format == "application/x-color") {
        auto const color = data_.colorData().value<QColor>();
        return RGBVector(static_cast<unsigned char>(color.red()), static_cast<unsigned char>(color.green()),
                         static_cast<unsigned char>(color.blue()))
            .GetAnything();
    }
    if (format == "text/plain") return FromPlatformText(data_.text());
    QByteArray const bytes = data_.data(ToPlatformText(format));
    return String(std::string(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

} // namespace GUI
