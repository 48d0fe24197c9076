#include "gui/platform/DragData_PC.h"

#include "core/base/Exceptions.h"
#include "gui/elements/description/Description.h"
#include "gui/platform/TextConversion_PC.h"

#include <QColor>
#include <QMimeData>
#include <QUrl>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

void DragContent::Merge(Anything const& map) {
    if (!map.IsOfTypeMap()) return;
    auto const take = [&map](char const* key, auto use) {
        Anything const* const value = map.GetMapOfAnythings().FindValue(key);
        if (!value || !value->IsValid()) return;
        try {
            use(*value);
        } catch (Norvelian::Utilities::Exceptions::TraceableException const&) {
            // One faulty key doesn't cost the others.
        }
    };
    take("Text", [this](Anything const& value) { text = value.GetString(); });
    take("Color", [this](Anything const& value) { color = RGBVector(value); });
    take("Files", [this](Anything const& value) {
        files.clear();
        for (Anything const& file : value.GetVectorOfAnythings()) files.push_back(file.GetString());
    });
}

std::unique_ptr<QMimeData> MakeMimeData(DragContent const& content) {
    auto mime = std::make_unique<QMimeData>();
    if (content.text.Length() != 0) mime->setText(ToPlatformText(content.text));
    if (content.color)
        mime->setColorData(
            QColor(content.color->GetRed(), content.color->GetGreen(), content.color->GetBlue()));
    if (!content.files.empty()) {
        QList<QUrl> urls;
        for (String const& file : content.files) urls << QUrl::fromLocalFile(ToPlatformText(file));
        mime->setUrls(urls);
    }
    if (!content.picture.isNull()) mime->setImageData(content.picture);
    return mime;
}

} // namespace GUI
