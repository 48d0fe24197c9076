#include "gui/report/ReportLayout.h"

#include "gui/report/ReportBlocks.h"

#include <algorithm>

namespace GUI {

using Utilities::String;
using Context = PlatformIndependentDeviceContext;

namespace {

/// Of a page's head or foot, with what separates it from the body.
constexpr long lineRoom = 36;
constexpr short lineSize = 12;

short Short(long value) { return static_cast<short>(std::clamp(value, -32768L, 32767L)); }

} // namespace

bool ReportPageLine::IsEmpty() const {
    return std::all_of(texts.begin(), texts.end(), [](String const& text) { return text.Length() == 0; });
}

ReportLayout::ReportLayout(Report const& report)
    : report_(report), theme_(*Theme::Find("Report")), lineFont_(report.font) {
    lineFont_.size = lineSize;
    lineFont_.color = {ThemeRole::Ink2, RGBVector(64, 64, 64)};
}

std::size_t ReportLayout::LayOut(Context& context, long width, long height) {
    width_ = width;
    height_ = height;
    bodyTop_ = report_.header.IsEmpty() ? 0 : lineRoom;
    bodyBottom_ = height - (report_.footer.IsEmpty() ? 0 : lineRoom);
    for (auto const& block : report_.blocks) block->LayOut(context, width);
    pages_.clear();
    BeginPage();
    for (std::size_t i = 0; i < report_.blocks.size(); ++i) {
        ReportBlock const& block = *report_.blocks[i];
        bool const isFirst = pages_.back().empty();
        if (!isFirst && y_ + block.GetSpace() + LeadOf(i) > bodyBottom_)
            BeginPage();
        else if (!isFirst)
            y_ += block.GetSpace();
        Place(block);
        // An empty page is no page.
        if (block.EndsPage() && !pages_.back().empty()) BeginPage();
    }
    if (pages_.size() > 1 && pages_.back().empty()) pages_.pop_back();
    return pages_.size();
}

void ReportLayout::BeginPage() {
    pages_.emplace_back();
    y_ = bodyTop_;
}

long ReportLayout::LeadOf(std::size_t index) const {
    long lead = 0;
    for (std::size_t i = index; i < report_.blocks.size(); ++i) {
        ReportBlock const& block = *report_.blocks[i];
        if (i > index) lead += block.GetSpace();
        if (block.GetCount() == 0) return lead;
        if (!block.KeepsWithNext()) return lead + block.GetHeadHeight() + block.GetHeight(0);
        for (std::size_t piece = 0; piece < block.GetCount(); ++piece) lead += block.GetHeight(piece);
    }
    return lead;
}

void ReportLayout::Place(ReportBlock const& block) {
    bool needsHead = block.GetHeadHeight() > 0;
    for (std::size_t piece = 0; piece < block.GetCount(); ++piece) {
        long const room = block.GetHeight(piece) + (needsHead ? block.GetHeadHeight() : 0);
        // What is higher than a page is on one of its own.
        if (y_ + room > bodyBottom_ && !pages_.back().empty()) {
            BeginPage();
            needsHead = block.GetHeadHeight() > 0;
        }
        if (needsHead) y_ += block.GetHeadHeight();
        pages_.back().push_back({&block, piece, y_, needsHead});
        needsHead = false;
        y_ += block.GetHeight(piece);
    }
}

void ReportLayout::Paint(Context& context, std::size_t page) {
    context.SetTheme(&theme_);
    for (Placed const& placed : pages_[page]) {
        if (placed.hasHead) placed.block->PaintHead(context, placed.top - placed.block->GetHeadHeight());
        placed.block->Paint(context, placed.piece, placed.top);
    }
    constexpr long gap = 8;
    long const lineHeight = lineFont_.GetLineHeight();
    if (!report_.header.IsEmpty()) PaintLine(context, report_.header, 0, lineHeight + gap / 2, page);
    if (!report_.footer.IsEmpty())
        PaintLine(context, report_.footer, height_ - lineHeight, height_ - lineHeight - gap, page);
}

void ReportLayout::PaintLine(Context& context, ReportPageLine const& line, long top, long rule,
                             std::size_t page) const {
    DrawRule(context, 0, width_, rule, ThemeRole::Line);
    lineFont_.Use(context);
    long const room = width_ / static_cast<long>(line.texts.size());
    for (std::size_t i = 0; i < line.texts.size(); ++i) {
        String text = line.texts[i];
        text.Replace("%1", String(static_cast<unsigned long>(page + 1)));
        text.Replace("%2", String(static_cast<unsigned long>(pages_.size())));
        text = ElideText(context, text, room);
        long const spare = width_ - WidthOf(context, text);
        context.DrawText(Short(spare * static_cast<long>(i) / 2), Short(top), text);
    }
}

} // namespace GUI
