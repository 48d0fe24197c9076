#include "services/clipboard/DataSource_PC.h"

#include "Utilities/Directory_PC.h"
#include "Utilities/Limits.h"
#include "Utilities/WholeFile.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/NumberTable.h"
#include "gui/shell/ElementPicture_PC.h"
#include "services/Bitmap_PC.h"
#include "services/clipboard/ClipboardFormats_PC.h"
#include "services/clipboard/GatheredData_PC.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QWidget>
#include <utility>

namespace GUI {

using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<DataSource_PC> const creator({"DataSource", "$Revision: 1.12 $", "GUI"});

QByteArray ToBytes(std::string const& text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

/// What a drag comes from; the platform wants an object that takes the events of the mouse meanwhile.
QWidget* FindDragSource() {
    if (QWidget* const active = QApplication::activeWindow()) return active;
    auto const windows = QApplication::topLevelWidgets();
    auto const shown =
        std::find_if(windows.begin(), windows.end(), [](QWidget* window) { return window->isVisible(); });
    return shown == windows.end() ? nullptr : *shown;
}

} // namespace

DataSource_PC::DataSource_PC() = default;
DataSource_PC::~DataSource_PC() = default;

long DataSource_PC::GetLeftBehind() { return GatheredData::GetLivingCount(); }

GatheredData& DataSource_PC::GetData() {
    if (!data_) data_ = std::make_unique<GatheredData>();
    return *data_;
}

DropEffect DataSource_PC::DoDragDrop(DropEffect effects) {
    QWidget* const source = FindDragSource();
    if (!data_ || !source || effects == DropEffect::None) return DropEffect::None;
    // The platform deletes both when it is done.
    auto* const drag = std::make_unique<QDrag>(source).release();
    drag->setMimeData(data_.release());
    Qt::DropActions allowed = Qt::CopyAction;
    if (effects == DropEffect::Move) allowed |= Qt::MoveAction;
    switch (drag->exec(allowed, effects == DropEffect::Move ? Qt::MoveAction : Qt::CopyAction)) {
    case Qt::CopyAction:
        return DropEffect::Copy;
    case Qt::MoveAction:
        return DropEffect::Move;
    default:
        return DropEffect::None;
    }
}

bool DataSource_PC::AddFile(String const& format, Utilities::SmartPointer<Utilities::File> file) {
    if (file.IsNull() || format == ClipboardFormats::bitmap) return false;
    std::string const path = Utilities::Directory_PC::ConvSeperatorDependend(file->GetPath());
    auto const whole = Utilities::ReadWholeFile(path, Utilities::Limits::Get().sampleFileBytes);
    if (whole.state != Utilities::FileState::Read) return false;
    GetData().setData(ClipboardFormats::MimeOf(format), ToBytes(whole.contents));
    return true;
}

bool DataSource_PC::AddBitmap(String const& format, Utilities::SmartPointer<Bitmap> bitmap) {
    auto const* const picture = dynamic_cast<Bitmap_PC const*>(bitmap.Get());
    if (!(format == ClipboardFormats::bitmap) || !picture || picture->GetBitmap().isNull()) return false;
    // Not the pixels that somebody draws into later.
    GetData().AddPicture(picture->GetBitmap());
    return true;
}

bool DataSource_PC::AddText(String const& format, String const& text) {
    if (format == ClipboardFormats::bitmap) return false;
    if (format == ClipboardFormats::text)
        GetData().setText(ToPlatformText(text));
    else
        GetData().setData(ClipboardFormats::MimeOf(format), ToBytes(text.GetStdString()));
    return true;
}

bool DataSource_PC::AddLater(String const& format, Maker const& maker) {
    if (format == ClipboardFormats::bitmap || !maker) return false;
    GetData().AddLater(ClipboardFormats::MimeOf(format), [maker] { return ToBytes(maker()); });
    return true;
}

bool DataSource_PC::AddElement(GUIElement& element) {
    QImage const image = ElementPicture_PC::Draw(element, {});
    if (image.isNull()) return false;
    GatheredData& data = GetData();
    data.AddPicture(image);
    ElementRendering drawing;
    drawing.format = "svg";
    // What the element shows may be another when somebody pastes.
    data.AddLater("image/svg+xml",
                  [svg = ToBytes(ElementPicture_PC::Render(element, drawing))] { return svg; });
    if (String const numbers = NumberTableOf(element); numbers.Length() != 0) AddText("Text", numbers);
    return true;
}

void DataSource_PC::SetClipboard() {
    if (qApp)
        QGuiApplication::clipboard()->setMimeData(data_ ? data_.release()
                                                        : std::make_unique<GatheredData>().release());
}

} // namespace GUI
