#include "gui/shell/DropHandlerImpl_PC.h"

#include "core/creators/ComponentCreator.h"
#include "gui/elements/description/Description.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/shell/ElementPicture_PC.h"

#include <QDrag>
#include <QMimeData>
#include <QPixmap>
#include <QWidget>

namespace GUI {

using Utilities::Anything;

namespace {

constexpr Utilities::ComponentDescription component{"DropHandlerImpl", "$Revision: 1.11 $", "GUI"};
Utilities::ComponentCreatorNormal<DropHandlerImpl_PC> const creator(component);

/// What hangs at the mouse: the colour, or the picture made small.
QPixmap SignOf(DragContent const& content) {
    constexpr int side = 24;
    constexpr int largest = 160;
    if (content.color) {
        QPixmap sign(side, side);
        sign.fill(QColor(content.color->GetRed(), content.color->GetGreen(), content.color->GetBlue()));
        return sign;
    }
    if (content.picture.isNull()) return {};
    return QPixmap::fromImage(
        content.picture.scaled(largest, largest, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

} // namespace

DragContent DropHandlerImpl_PC::Read(GUIElement& element, Anything const& content) {
    DragContent read;
    read.Merge(content);
    if (!content.IsOfTypeMap()) return read;
    Anything const* const picture = content.GetMapOfAnythings().FindValue("Picture");
    if (picture && picture->GetKind() == Anything::Kind::Bool && picture->GetBool())
        read.picture = ElementPicture_PC::Draw(element, {});
    return read;
}

DropEffect DropHandlerImpl_PC::Drag(GUIElement& element, Anything const& content) {
    DragContent const read = Read(element, content);
    auto const* const identity = element.GetParentWindowID();
    QWidget* const source = identity ? PlatformIndependentWindowID_PC::WindowOf(*identity) : nullptr;
    if (read.IsEmpty() || !source) return DropEffect::None;
    // Qt deletes it once it has been dropped, whatever becomes of its source meanwhile.
    auto* const drag = new QDrag(source);
    drag->setMimeData(MakeMimeData(read).release());
    drag->setPixmap(SignOf(read));
    switch (drag->exec(Qt::CopyAction)) {
    case Qt::CopyAction:
        return DropEffect::Copy;
    case Qt::MoveAction:
        return DropEffect::Move;
    default:
        return DropEffect::None;
    }
}

} // namespace GUI
