#include "gui/shell/ElementPicture_PC.h"

#include "Diagnostics/Sink.h"
#include "Utilities/AtomicFile.h"
#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"
#include "gui/elements/Pane.h"
#include "gui/layout/FrameBox.h"
#include "gui/platform/PagePrinter_PC.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/platform/SvgDeviceContext_PC.h"
#include "gui/shell/CNorvelianSurface.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace GUI {

namespace {

/// Gives each pane a context on its part of the device.
using Draw = std::function<void(Pane&, SurfacePart const&)>;

/// What is drawn, and in which colours.
struct Subject {
    GUIElement& element;
    QSize size;
    std::optional<Theme> theme;

    void Paint(Pane& pane, PlatformIndependentDeviceContext& context) const {
        context.SetTheme(theme ? &*theme : nullptr);
        if (theme) context.SetTextColor(theme->Get(ThemeRole::Ink));
        pane.OnPaint(context);
    }
};

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
    auto* const frame = dynamic_cast<FrameBox*>(&element);
    if (frame && frame->GetPanel()) DrawTree(*frame->GetPanel(), origin, inner, draw);
    // What the paint calls may drop some of them.
    std::vector<Utilities::SmartPointer<GUIElement>> children;
    for (auto child = element.GetChildrenList().Begin(); child.IsValid(); ++child)
        children.push_back(child.Current());
    for (auto& child : children)
        if (child->IsAttached()) DrawTree(*child, origin, inner, draw);
}

Subject Describe(GUIElement& element, Utilities::String const& theme) {
    Subject subject{element, BoxOf(element).size(), Theme::Find(theme)};
    auto const own = element.GetWindowID();
    auto const* const identity = element.GetParentElement() ? element.GetParentWindowID() : own.Get();
    QWidget* const window = identity ? PlatformIndependentWindowID_PC::WindowOf(*identity) : nullptr;
    if (!subject.theme && window)
        if (Theme const* const shown = CNorvelianSurface::Of(*window->window()).GetTheme())
            subject.theme = *shown;
    return subject;
}

void DrawAll(Subject const& subject, Draw const& draw) {
    DrawTree(subject.element, -BoxOf(subject.element).topLeft(), QRect(QPoint(), subject.size), draw);
}

void DrawThrough(QPainter& painter, Subject const& subject, QImage* pixels) {
    DrawAll(subject, [&](Pane& pane, SurfacePart const& part) {
        PlatformIndependentDeviceContext_PC context(painter, part, {pixels, QPoint(0, 0)});
        subject.Paint(pane, context);
    });
}

QImage DrawPicture(Subject const& subject, double scale) {
    auto const pixels = [scale](int length) { return static_cast<std::size_t>(std::lround(length * scale)); };
    std::size_t const width = pixels(subject.size.width());
    std::size_t const height = pixels(subject.size.height());
    if (width * height > Utilities::Limits::Get().pixels) return {};
    QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
    if (image.isNull()) return image;
    image.fill(Qt::white);
    // The context takes it for a screen of finer pixels; coarser ones are the painter's.
    if (scale >= 1) image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    if (scale < 1) painter.scale(scale, scale);
    DrawThrough(painter, subject, scale >= 1 ? &image : nullptr);
    painter.end();
    image.setDevicePixelRatio(1);
    image.setColorSpace(QColorSpace::SRgb);
    return image;
}

/// 0 for a width that no picture has.
double ScaleOf(Subject const& subject, ElementRendering const& rendering) {
    constexpr unsigned long widest = 65535;
    if (subject.size.isEmpty() || rendering.width > widest) return 0;
    return rendering.width == 0 ? 1 : static_cast<double>(rendering.width) / subject.size.width();
}

bool DrawPage(Subject const& subject, double scale, QBuffer& file) {
    QPdfWriter writer(&file);
    writer.setPageMargins({});
    writer.setPageSize(QPageSize(QSizeF(subject.size) * scale, QPageSize::Point));
    constexpr int pointsAnInch = 72;
    constexpr int fineness = 10;
    writer.setResolution(pointsAnInch * fineness);
    QPainter painter;
    if (!painter.begin(&writer)) return false;
    painter.scale(scale * fineness, scale * fineness);
    DrawThrough(painter, subject, nullptr);
    return painter.end();
}

std::string DrawSvg(Subject const& subject, double scale) {
    auto const box = [](QRect const& rect, double by) {
        return " width=\"" + std::to_string(std::lround(rect.width() * by)) + "\" height=\"" +
               std::to_string(std::lround(rect.height() * by)) + "\" viewBox=\"" + std::to_string(rect.x()) +
               " " + std::to_string(rect.y()) + " " + std::to_string(rect.width()) + " " +
               std::to_string(rect.height()) + "\"";
    };
    std::string svg =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
        box(QRect(QPoint(), subject.size), scale) + ">\n";
    DrawAll(subject, [&](Pane& pane, SurfacePart const& part) {
        // An inner drawing is clipped to its box.
        QRect const clip = part.clip.boundingRect();
        svg += "<svg x=\"" + std::to_string(clip.x()) + "\" y=\"" + std::to_string(clip.y()) + "\"" +
               box(clip.translated(-part.origin), 1) + ">\n";
        {
            SvgDeviceContext_PC context(svg);
            subject.Paint(pane, context);
        }
        svg += "</svg>\n";
    });
    return svg + "</svg>\n";
}

bool Write(std::string const& path, std::string_view bytes) {
    try {
        Utilities::WriteFileAtomically(path, bytes);
    } catch (Norvelian::Utilities::Exceptions::ResourceException const&) {
        Diagnostics::DropException("ElementPicture_PC");
        return false;
    }
    return true;
}

} // namespace

QImage ElementPicture_PC::Draw(GUIElement& element, ElementRendering const& rendering) {
    Subject const subject = Describe(element, rendering.theme);
    double const scale = ScaleOf(subject, rendering);
    return scale == 0 ? QImage() : DrawPicture(subject, scale);
}

void ElementPicture_PC::Draw(GUIElement& element, QPainter& painter, QRect const& box, Theme const* theme) {
    painter.save();
    painter.translate(box.topLeft());
    DrawThrough(painter, {element, box.size(), theme ? std::optional(*theme) : std::nullopt}, nullptr);
    painter.restore();
}

std::string ElementPicture_PC::Render(GUIElement& element, ElementRendering const& rendering) {
    Subject const subject = Describe(element, rendering.theme);
    std::string const& format = rendering.format.GetStdString();
    double const scale = ScaleOf(subject, rendering);
    if (format.empty() || scale == 0) return {};
    if (format == "svg") return DrawSvg(subject, scale);
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    // Of a PNG this is how hard it is packed, not how good it is.
    constexpr int quick = 80;
    bool const isDrawn =
        format == "pdf"
            ? DrawPage(subject, scale, file)
            : DrawPicture(subject, scale).save(&file, format.c_str(), format == "png" ? quick : -1);
    return isDrawn ? bytes.toStdString() : std::string();
}

bool ElementPicture_PC::Save(GUIElement& element, std::string const& path,
                             ElementRendering const& rendering) {
    std::string const extension = std::filesystem::path(path).extension().string();
    if (extension.empty()) return false;
    ElementRendering wanted = rendering;
    wanted.format = extension.substr(1);
    std::string const bytes = Render(element, wanted);
    return !bytes.empty() && Write(path, bytes);
}

bool ElementPicture_PC::Print(GUIElement& element, QPagedPaintDevice& device,
                              Utilities::String const& theme) {
    Subject const subject = Describe(element, theme.Length() == 0 ? "Report" : theme);
    QPainter painter;
    if (subject.size.isEmpty() || !painter.begin(&device)) return false;
    QSizeF const room = device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
    double const scale = std::min(room.width() / subject.size.width(), room.height() / subject.size.height());
    painter.scale(scale, scale);
    DrawThrough(painter, subject, nullptr);
    return painter.end();
}

bool ElementPicture_PC::Print(GUIElement& element, std::string const& printer,
                              Utilities::String const& theme) {
    QSize const size = BoxOf(element).size();
    QByteArray page;
    {
        QBuffer file(&page);
        file.open(QIODevice::WriteOnly);
        QPdfWriter writer(&file);
        constexpr int dotsAnInch = 720;
        constexpr double margin = 15;
        writer.setResolution(dotsAnInch);
        writer.setPageLayout({QPageSize(QPageSize::A4),
                              size.width() > size.height() ? QPageLayout::Landscape : QPageLayout::Portrait,
                              QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter});
        if (!Print(element, writer, theme)) return false;
    }
    if (printer.ends_with(".pdf"))
        return Write(printer, {page.constData(), static_cast<std::size_t>(page.size())});
    return SendToPrinter(page, printer);
}

} // namespace GUI
