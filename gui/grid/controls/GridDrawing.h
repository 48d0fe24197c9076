#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"
#include "gui/grid/model/CGXStyle.h"

#include <algorithm>
#include <vector>

namespace GUI {

/// A box of pixels; right and bottom are outside.
struct GridBox {
    long left = 0;
    long top = 0;
    long right = 0;
    long bottom = 0;

    long GetWidth() const { return right - left; }
    long GetHeight() const { return bottom - top; }
    bool IsEmpty() const { return right <= left || bottom <= top; }
    bool Contains(long x, long y) const { return x >= left && x < right && y >= top && y < bottom; }
    GridBox Meet(GridBox const& other) const {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
    GridBox Inset(long by) const { return {left + by, top + by, right - by, bottom - by}; }
    bool operator==(GridBox const&) const = default;
};

/// The colours that a grid draws in without being told.
struct GridColors {
    RGBVector background{ThemeRole::Panel, {255, 255, 255}};
    RGBVector outside{ThemeRole::Panel, {240, 240, 240}};
    RGBVector header{ThemeRole::Header, {236, 236, 236}};
    RGBVector line{ThemeRole::Line, {208, 208, 208}};
    RGBVector ink{ThemeRole::Ink, {0, 0, 0}};
    RGBVector disabled{ThemeRole::Ink3, {140, 140, 140}};
    RGBVector selection{ThemeRole::Band, {205, 225, 245}};
    /// Around measured colours.
    RGBVector surround{ThemeRole::Surround, {198, 198, 198}};
    RGBVector band{ThemeRole::Band, {222, 222, 222}};
    RGBVector bar{ThemeRole::Axis, {92, 92, 92}};
    RGBVector accent{ThemeRole::Accent, {29, 95, 166}};
};

/// What was measured of fonts. Measuring takes as long as drawing a cell, so who paints again keeps this.
struct GridFonts {
    struct Font {
        Utilities::String face;
        short size = 0;
        bool bold = false;
        long lineHeight = 0;
        /// No character is wider for each of its bytes.
        long widest = 0;
        long widestDigit = 0;
    };
    std::vector<Font> measured;
};

/// A device context in which fonts, pens and brushes are set only where they change: a page has hundreds of
/// cells of the same style.
class GridDrawing {
public:
    GridDrawing(PlatformIndependentDeviceContext& context, GridColors const& colors, char decimalSign,
                GridFonts& fonts)
        : context_(context), colors_(colors), decimalSign_(decimalSign), fonts_(fonts) {}

    GridColors const& GetColors() const { return colors_; }
    char GetDecimalSign() const { return decimalSign_; }
    PlatformIndependentDeviceContext& GetContext() { return context_; }

    void Fill(GridBox const& box, RGBVector const& color);
    void Frame(GridBox const& box, RGBVector const& color);
    void Line(long x1, long y1, long x2, long y2, RGBVector const& color, long width = 1);
    /// Text inside a box with a margin of `margin` to its sides, in the style's font and alignment, on as
    /// many lines as it has and find room. What is too wide ends in an ellipsis.
    void Text(GridBox const& box, CGXStyle const& style, Utilities::String const& text,
              RGBVector const& color, GridAlignment alignment);
    /// A check box; `mark` is drawn in it.
    enum class Mark : std::uint8_t { None, Tick, Bar };
    void CheckBox(GridBox const& box, Mark mark, RGBVector const& ink, bool pressed);
    static constexpr long checkBoxSide = 13;
    void SelectFont(CGXStyle const& style);
    long GetTextWidth(Utilities::String const& text);
    long GetLineHeight() const { return font_.lineHeight; }

    static constexpr long margin = 4;

private:
    void TextLine(GridBox const& box, Utilities::String const& text, GridAlignment alignment);
    Utilities::String Shortened(Utilities::String const& text, long width);

    PlatformIndependentDeviceContext& context_;
    GridColors const& colors_;
    char decimalSign_;
    GridFonts& fonts_;
    /// The selected one; none as long as nothing was measured of it.
    GridFonts::Font font_;
};

} // namespace GUI
