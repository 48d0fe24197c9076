#include "gui/shell/ElementPicture_PC.h"

#include "Diagnostics/Sink.h"
#include "Utilities/AtomicFile.h"
#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"
#include "gui/elements/Pane.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <cmath>
#include <filesystem>
#include <functional>
#include <vector>

namespace GUI {

namespace {

/// Gives each pane a context on its part of the device.
using Draw = std::function<void(Pane&, SurfacePart const&)>;

QRect BoxOf(GUIElement const& element) {
    unsigned long x = 0;
    unsigned long y = 0;
    unsigned long width = 0;
    unsigned long height = 0;
    element.GetPosition(x, y);
    element.GetSize(width, height);
    return {static_cast<int>(x), static_cast<int>(y), static_cast<int>(width), static_cast<int>(height)};
}

/// `origin` is the place of the window that the element's position is in.
void DrawTree(GUIElement& element, QPoint origin, QRect const& clip, Draw const& draw) {
    CallScope const call(element);
    auto* const pane = dynamic_cast<Pane*>(&element);
    QRect inner = clip;
    if (pane) {
        QRect const box = BoxOf(element).translated(origin);
        inner = clip.intersected(box);
        if (inner.isEmpty()) return;
        origin = box.topLeft();
        draw(*pane, {origin, QRegion(inner)});
    }
    // What the paint calls may drop some of them.
    std::vector<Utilities::SmartPointer<GUIElement>> children;
    for (auto child = element.GetChildrenList().Begin(); child.IsValid(); ++child)
        children.push_back(child.Current());
    for (auto& child : children)
        if (child->IsAttached()) DrawTree(*child, origin, inner, draw);
}

QImage DrawImage(GUIElement& element, QSize const& size, double scale) {
    auto const pixels = [scale](int length) { return static_cast<std::size_t>(std::lround(length * scale)); };
    if (pixels(size.width()) * pixels(size.height()) > Utilities::Limits::Get().pixels) return {};
    QImage image(static_cast<int>(pixels(size.width())), static_cast<int>(pixels(size.height())),
                 QImage::Format_RGB32);
    if (image.isNull()) return image;
    image.fill(Qt::white);
    // The context takes it for a screen of finer pixels; coarser ones are the painter's.
    if (scale >= 1) image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    if (scale < 1) painter.scale(scale, scale);
    DrawTree(element, -BoxOf(element).topLeft(), QRect(QPoint(), size),
             [&](Pane& pane, SurfacePart const& part) {
                 PlatformIndependentDeviceContext_PC context(painter, part,
                                                             {scale >= 1 ? &image : nullptr, QPoint(0, 0)});
                 pane.OnPaint(context);
             });
    painter.end();
    image.setDevicePixelRatio(1);
    image.setColorSpace(QColorSpace::SRgb);
    return image;
}

bool DrawPage(GUIElement& element, QSize const& size, double scale, QBuffer& file) {
    QPdfWriter writer(&file);
    writer.setPageMargins({});
    writer.setPageSize(QPageSize(QSizeF(size) * scale, QPageSize::Point));
    constexpr int pointsAnInch = 72;
    constexpr int fineness = 10;
    writer.setResolution(pointsAnInch * fineness);
    QPainter painter;
    if (!painter.begin(&writer)) return false;
    painter.scale(scale * fineness, scale * fineness);
    DrawTree(element, -BoxOf(element).topLeft(), QRect(QPoint(), size),
             [&](Pane& pane, SurfacePart const& part) {
                 PlatformIndependentDeviceContext_PC context(painter, part);
                 pane.OnPaint(context);
             });
    return painter.end();
}

} // namespace

bool ElementPicture_PC::Save(GUIElement& element, std::string const& path, unsigned long width) {
    std::string const extension = std::filesystem::path(path).extension().string();
    QSize const size = BoxOf(element).size();
    constexpr unsigned long widest = 65535;
    if (extension.empty() || size.isEmpty() || width > widest) return false;
    double const scale = width == 0 ? 1 : static_cast<double>(width) / size.width();
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    bool const isDrawn = extension == ".pdf"
                             ? DrawPage(element, size, scale, file)
                             : DrawImage(element, size, scale).save(&file, extension.c_str() + 1);
    if (!isDrawn) return false;
    try {
        Utilities::WriteFileAtomically(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    } catch (Norvelian::Utilities::Exceptions::ResourceException const&) {
        Diagnostics::DropException("ElementPicture_PC::Save");
        return false;
    }
    return true;
}

QImage ElementPicture_PC::Draw(GUIElement& element) {
    QSize const size = BoxOf(element).size();
    return size.isEmpty() ? QImage() : DrawImage(element, size, 1);
}

} // namespace GUI
