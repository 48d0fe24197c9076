#include "gui/report/ReportTable.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/drawing/VerdictSign.h"
#include "gui/report/ReportBlocks.h"

#include <algorithm>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;
using Context = PlatformIndependentDeviceContext;

namespace {

constexpr long padding = 8;
constexpr long rowRoom = 7;
constexpr long textTop = 3;
constexpr short signSize = 14;
/// Around a colour.
constexpr long surroundWidth = 5;

RGBVector const headGround{ThemeRole::Header, RGBVector(242, 242, 242)};
RGBVector const surround{ThemeRole::Surround, RGBVector(198, 198, 198)};

short Short(long value) { return static_cast<short>(std::clamp(value, -32768L, 32767L)); }

void FillBox(Context& context, RGBVector const& color, long left, long top, long right, long bottom) {
    context.SetBrush(color);
    context.SetPen(color, 1, Context::noPen);
    context.FillRectangle(Short(left), Short(top), Short(right), Short(bottom));
}

ReportFont Bold(ReportFont font) {
    font.isBold = true;
    return font;
}

} // namespace

ReportTable::ReportTable(ReportFont font, std::vector<ReportColumn> columns, std::vector<Row> rows)
    : font_(std::move(font)), headFont_(Bold(font_)), columns_(std::move(columns)), rows_(std::move(rows)) {
    for (Row& row : rows_) row.resize(columns_.size());
}

void ReportTable::LayOut(Context& context, long width) {
    width_ = width;
    double whole = 0;
    for (ReportColumn const& column : columns_) whole += column.weight;
    places_.clear();
    double at = 0;
    for (ReportColumn const& column : columns_) {
        double const end = at + column.weight / whole * static_cast<double>(width);
        places_.push_back({std::lround(at) + padding, std::lround(end) - padding});
        at = end;
    }
    headFont_.Use(context);
    std::size_t headLines = 1;
    for (std::size_t i = 0; i < columns_.size(); ++i)
        headLines = std::max(headLines, LinesOf(context, columns_[i].caption, i).size());
    headLines_ = static_cast<long>(headLines);
    font_.Use(context);
    heights_.clear();
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        std::size_t lines = 1;
        for (std::size_t column = 0; column < columns_.size(); ++column)
            if (columns_[column].control == ReportColumn::Control::Text)
                lines = std::max(lines, LinesOf(context, TextOf(row, column), column).size());
        heights_.push_back(static_cast<long>(lines) * font_.GetLineHeight() + rowRoom);
    }
}

long ReportTable::GetHeadHeight() const { return headLines_ * headFont_.GetLineHeight() + rowRoom; }

String ReportTable::TextOf(std::size_t row, std::size_t column) const {
    Anything const& cell = rows_[row][column];
    if (!cell.IsValid()) return "\u2013";
    if (auto const& number = columns_[column].number; number && !cell.IsOfTypeString())
        return number->Write(cell.GetDouble());
    return cell.GetString();
}

std::vector<String> ReportTable::LinesOf(Context& context, String const& text, std::size_t column) const {
    if (columns_[column].number && text.GetStdString().find(' ') == std::string::npos) return {text};
    return WrapText(context, text, std::max(places_[column].right - places_[column].left, 1L));
}

void ReportTable::PaintText(Context& context, String const& text, std::size_t column, long top) const {
    auto const [left, right] = places_[column];
    for (String const& line : LinesOf(context, text, column)) {
        long const x = columns_[column].isRight ? right - WidthOf(context, line) : left;
        context.DrawText(Short(x), Short(top), line);
        top += font_.GetLineHeight();
    }
}

void ReportTable::PaintHead(Context& context, long top) const {
    FillBox(context, headGround, 0, top, width_, top + GetHeadHeight());
    headFont_.Use(context);
    for (std::size_t i = 0; i < columns_.size(); ++i)
        PaintText(context, columns_[i].caption, i, top + textTop);
}

void ReportTable::PaintCell(Context& context, std::size_t row, std::size_t column, long top) const {
    Anything const& cell = rows_[row][column];
    auto const [left, right] = places_[column];
    switch (columns_[column].control) {
    case ReportColumn::Control::Patch: {
        if (!cell.IsValid()) return;
        long const bottom = top + heights_[row];
        FillBox(context, surround, left, top, right, bottom);
        FillBox(context, RGBVector(cell), left + surroundWidth, top + surroundWidth, right - surroundWidth,
                bottom - surroundWidth);
        return;
    }
    case ReportColumn::Control::Verdict: {
        auto const verdict = cell.IsOfTypeString() ? FindVerdict(cell.GetString()) : std::nullopt;
        if (!verdict) return;
        DrawVerdictSign(context, *verdict, VerdictTones::Of(*verdict), Short(left), Short(top + textTop + 3),
                        signSize);
        font_.Use(context);
        context.DrawText(Short(left + signSize + padding), Short(top + textTop),
                         Utilities::LanguageServiceInterface::GetTranslation(WordOf(*verdict)));
        return;
    }
    default:
        font_.Use(context);
        PaintText(context, TextOf(row, column), column, top + textTop);
    }
}

void ReportTable::Paint(Context& context, std::size_t piece, long top) const {
    for (std::size_t column = 0; column < columns_.size(); ++column) PaintCell(context, piece, column, top);
    DrawRule(context, 0, width_, top + heights_[piece] - 1, ThemeRole::Line);
}

} // namespace GUI
