#include "gui/report/ReportBlocks.h"

#include <algorithm>

namespace GUI {

using Utilities::String;
using Context = PlatformIndependentDeviceContext;

namespace {

constexpr short smallSize = 12;
constexpr long ruleRoom = 9;

RGBVector const quiet{ThemeRole::Ink2, RGBVector(64, 64, 64)};

short Short(long value) { return static_cast<short>(std::clamp(value, -32768L, 32767L)); }

ReportFont Small(ReportFont font) {
    font.size = smallSize;
    font.isBold = false;
    font.color = quiet;
    return font;
}

ReportFont OfLevel(ReportFont font, long level) {
    font.size = level <= 1 ? short{28} : level == 2 ? short{18} : short{14};
    font.isBold = true;
    return font;
}

} // namespace

void DrawRule(Context& context, long left, long right, long y, ThemeRole role) {
    context.SetPen(RGBVector(role, RGBVector(160, 160, 160)), 1, Context::solid);
    context.DrawLine(Short(left), Short(y), Short(right), Short(y));
}

// ------------------------------------------------------------------ heading

ReportHeading::ReportHeading(ReportFont font, long level, String text, String condition)
    : font_(OfLevel(font, level)), conditionFont_(Small(std::move(font))), hasLine_(level <= 1),
      text_(std::move(text)), condition_(std::move(condition)) {}

void ReportHeading::LayOut(Context& context, long width) {
    width_ = width;
    conditionFont_.Use(context);
    shownCondition_ = ElideText(context, condition_, width / 2);
    long const conditionWidth = WidthOf(context, shownCondition_);
    conditionLeft_ = width - conditionWidth;
    font_.Use(context);
    lines_ = WrapText(context, text_, conditionLeft_ - (conditionWidth == 0 ? 0 : smallSize));
}

long ReportHeading::GetHeight(std::size_t /*piece*/) const {
    return static_cast<long>(lines_.size()) * font_.GetLineHeight() + (hasLine_ ? ruleRoom : 0);
}

void ReportHeading::Paint(Context& context, std::size_t /*piece*/, long top) const {
    font_.Use(context);
    long y = top;
    for (String const& line : lines_) {
        context.DrawText(0, Short(y), line);
        y += font_.GetLineHeight();
    }
    if (hasLine_) DrawRule(context, 0, width_, y + ruleRoom / 2, ThemeRole::Ink);
    if (shownCondition_.Length() == 0) return;
    conditionFont_.Use(context);
    context.DrawText(Short(conditionLeft_), Short(y - conditionFont_.GetLineHeight() - 2), shownCondition_);
}

// ------------------------------------------------------------------ paragraph, facts

void ReportParagraph::LayOut(Context& context, long width) {
    font_.Use(context);
    lines_ = WrapText(context, text_, width);
}

void ReportParagraph::Paint(Context& context, std::size_t piece, long top) const {
    font_.Use(context);
    context.DrawText(0, Short(top), lines_[piece]);
}

ReportFacts::ReportFacts(ReportFont const& font, long columns, Facts facts)
    : captionFont_(Small(font)), textFont_(font),
      columns_(static_cast<std::size_t>(std::clamp(columns, 1L, 12L))), facts_(std::move(facts)) {}

void ReportFacts::LayOut(Context& /*context*/, long width) {
    columnWidth_ = width / static_cast<long>(columns_);
}

std::size_t ReportFacts::GetCount() const { return (facts_.size() + columns_ - 1) / columns_; }

long ReportFacts::GetHeight(std::size_t /*piece*/) const {
    constexpr long gap = 4;
    return captionFont_.GetLineHeight() + textFont_.GetLineHeight() + gap;
}

void ReportFacts::Paint(Context& context, std::size_t piece, long top) const {
    constexpr long gap = 12;
    for (std::size_t i = piece * columns_; i < std::min((piece + 1) * columns_, facts_.size()); ++i) {
        short const left = Short(static_cast<long>(i % columns_) * columnWidth_);
        captionFont_.Use(context);
        context.DrawText(left, Short(top), ElideText(context, facts_[i].first, columnWidth_ - gap));
        textFont_.Use(context);
        context.DrawText(left, Short(top + captionFont_.GetLineHeight()),
                         ElideText(context, facts_[i].second, columnWidth_ - gap));
    }
}

// ------------------------------------------------------------------ signature

void ReportSignature::LayOut(Context& context, long width) {
    font_.Use(context);
    width_ = width;
    captionWidth_ = WidthOf(context, caption_);
}

void ReportSignature::Paint(Context& context, std::size_t /*piece*/, long top) const {
    constexpr long lineWidth = 180;
    constexpr long gap = 12;
    font_.Use(context);
    long const base = top + font_.GetLineHeight();
    context.DrawText(Short(std::max(width_ - lineWidth - gap - captionWidth_, 0L)), Short(base), caption_);
    DrawRule(context, width_ - lineWidth, width_, base + font_.size + 4, ThemeRole::Ink);
}

} // namespace GUI
