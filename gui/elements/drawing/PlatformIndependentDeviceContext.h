#pragma once

#include "Utilities/Tools/Pair.h"
#include "Utilities/Tools/Vector.h"
#include "core/base/String.h"
#include "gui/elements/colour/Theme.h"

#include <cstdint>
#include <span>

namespace GUI {

/// The surface of one paint.
///
/// It lives on the stack of whoever got the platform's paint notification, or of a picture being drawn
/// into; nothing may keep it longer. Pen, brush and font are in no stated condition when a paint
/// begins: painting code sets them before each figure.
///
/// Conventions, which every implementation keeps to the pixel:
/// - Coordinates are pixels from the surface's origin, 16-bit signed, x to the right, y downward.
/// - A box is given by left, top, right, bottom with right and bottom outside: the outline of width 1
///   of a rectangle is on left, top, right - 1 and bottom - 1. A box whose right or bottom does not
///   are beyond left or top draws nothing.
/// - A line leaves out its last point; a line without length draws nothing. The outline of a polygon
///   is closed and has all its points.
/// - Pens of width 0 and 1 are one pixel wide, without antialiasing. Wider pens are centred on the
///   line, with the odd pixel of an even width above and to the left, of ellipses outside.
/// - Angles are degrees, counter-clockwise from the x axis.
/// - On a screen with finer pixels each edge of a box is on the nearest edge between two pixels of the
///   screen. A pen is as many of them wide as its width comes to, the same everywhere.
/// - Positive font heights are points at 96 pixels an inch, of which the smallest is 8; negative ones are
///   pixels. A face that isn't installed is substituted: Arial by Liberation Sans, others by the platform's
///   sans serif.
/// - A colour with a role is drawn as the context's theme has it.
/// - Text is bytes; what they mean is decided by the implementation (UTF-8, else Windows-1252).
class PlatformIndependentDeviceContext {
public:
    /// Pen styles.
    static constexpr long solid = 0;
    static constexpr long dashed = 1;
    static constexpr long dotted = 2;
    static constexpr long noPen = 5;

    /// Font styles, which add up.
    static constexpr short boldFont = 1;
    static constexpr short italicFont = 2;
    static constexpr short underlinedFont = 4;

    using Points = Utilities::Vector<Utilities::Pair<long, long>>;

    PlatformIndependentDeviceContext() = default;
    PlatformIndependentDeviceContext(PlatformIndependentDeviceContext const&) = delete;
    PlatformIndependentDeviceContext& operator=(PlatformIndependentDeviceContext const&) = delete;
    /// Releases what the surface selected.
    virtual ~PlatformIndependentDeviceContext() = default;

    /// The theme of the window or page that is drawn; null, as at first, for none. It must outlive the
    /// context's use.
    void SetTheme(Theme const* theme) { theme_ = theme; }
    Theme const* GetTheme() const { return theme_; }

    /// The colour behind text and hatch patterns; returns the previous one. So far it is only kept: text is
    /// drawn with nothing behind it, and all brushes are solid.
    virtual RGBVector SetBackgroundColor(RGBVector const& color) = 0;
    /// The colour of `DrawText`; returns the previous one.
    virtual RGBVector SetTextColor(RGBVector const& color) = 0;
    /// Selects the pen for lines and outlines until the next call.
    virtual void SetPen(RGBVector const& color, long width, long style) = 0;
    /// Selects a solid brush for filled figures.
    virtual void SetBrush(RGBVector const& color) = 0;
    /// `width` is the average width of a character in pixels, 0 for the face's own; `escapement` turns
    /// the base line by tenths of a degree; `bold` is the sum of the font styles, 0 for none.
    virtual void SetFont(short height, short width, short escapement, Utilities::String const& face,
                         short bold) = 0;

    /// Sets the current position.
    virtual void MoveTo(short x, short y) = 0;
    /// Draws a line from the current position, which moves to the line's end.
    virtual void LineTo(short x, short y) = 0;
    /// One line; the current position stays.
    virtual void DrawLine(short x1, short y1, short x2, short y2) = 0;
    /// The outline alone.
    virtual void DrawRectangle(short left, short top, short right, short bottom) = 0;
    /// The inside with the brush, the outline with the pen; so with all `Fill` operations.
    virtual void FillRectangle(short left, short top, short right, short bottom) = 0;
    virtual void DrawEllipse(short left, short top, short right, short bottom) = 0;
    virtual void FillEllipse(short left, short top, short right, short bottom) = 0;
    virtual void DrawArc(short cx, short cy, short radius, float startAngle, float sweepAngle) = 0;
    /// The sector that the same arc bounds; a sweep of 360 degrees is a full disc.
    virtual void FillPie(short cx, short cy, short radius, float startAngle, float sweepAngle) = 0;
    virtual void DrawPolygon(Points points) = 0;
    virtual void FillPolygon(Points points) = 0;
    /// The named image of the image service with its top left corner at (x, y). An icon, which is a drawing
    /// of one tone, has the colour of texts.
    virtual void DrawImage(short x, short y, Utilities::String const& imageName) = 0;
    /// Text with its top left corner at (x, y), nothing behind it.
    virtual void DrawText(short x, short y, Utilities::String const& text) = 0;
    /// The size of a text in the selected font; an empty one has the width 0.
    virtual void GetTextExtent(Utilities::String const& text, long& width, long& height) = 0;

    /// Whether lines that aren't parallel to an axis, curves, and the edges of round and slanted figures are
    /// drawn with antialiasing until the next call. No paint begins with it.
    virtual void SetSmooth(bool /*smooth*/) {}
    /// Colours by rows from the top, each 0xRRGGBB, stretched over a box. `width` is how many are in a row;
    /// each fills its share of the box, without mixing.
    virtual void DrawPixels(short left, short top, short right, short bottom,
                            std::span<std::uint32_t const> colors, long width) = 0;
    /// Pixels of the device a pixel: what a picture that is computed for the screen is computed for.
    virtual double GetScale() { return 1; }

protected:
    /// The colour as it is drawn.
    RGBVector const& Resolve(RGBVector const& color) const { return theme_ ? theme_->Resolve(color) : color; }
    /// The width that solid lines of a pen have: on paper they are half as wide again.
    long StrokeWidth(long width, long style) const {
        return theme_ && theme_->HasWideLines() && style == solid ? width + (width + 1) / 2 : width;
    }

private:
    Theme const* theme_ = nullptr;
};

} // namespace GUI
