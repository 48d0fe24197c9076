#pragma once

#include "gui/report/ReportBlock.h"
#include "gui/report/ReportText.h"

#include <utility>
#include <vector>

namespace GUI {

/// A heading of level 1, with a line below it, to 3. What it holds under is small at its right.
class ReportHeading : public ReportBlock {
public:
    ReportHeading(ReportFont font, long level, Utilities::String text, Utilities::String condition);

    void LayOut(PlatformIndependentDeviceContext& context, long width) override;
    long GetHeight(std::size_t piece) const override;
    void Paint(PlatformIndependentDeviceContext& context, std::size_t piece, long top) const override;
    long GetSpace() const override { return font_.size; }
    bool KeepsWithNext() const override { return true; }

private:
    ReportFont font_;
    ReportFont conditionFont_;
    bool hasLine_;
    Utilities::String text_;
    Utilities::String condition_;
    std::vector<Utilities::String> lines_;
    Utilities::String shownCondition_;
    long conditionLeft_ = 0;
    long width_ = 0;
};

/// A text on as many lines as it needs.
class ReportParagraph : public ReportBlock {
public:
    ReportParagraph(ReportFont font, Utilities::String text)
        : font_(std::move(font)), text_(std::move(text)) {}

    void LayOut(PlatformIndependentDeviceContext& context, long width) override;
    std::size_t GetCount() const override { return lines_.size(); }
    long GetHeight(std::size_t /*piece*/) const override { return font_.GetLineHeight(); }
    void Paint(PlatformIndependentDeviceContext& context, std::size_t piece, long top) const override;

private:
    ReportFont font_;
    Utilities::String text_;
    std::vector<Utilities::String> lines_;
};

/// Captions with their texts below, in columns.
class ReportFacts : public ReportBlock {
public:
    using Facts = std::vector<std::pair<Utilities::String, Utilities::String>>;

    ReportFacts(ReportFont const& font, long columns, Facts facts);

    void LayOut(PlatformIndependentDeviceContext& context, long width) override;
    std::size_t GetCount() const override;
    long GetHeight(std::size_t piece) const override;
    void Paint(PlatformIndependentDeviceContext& context, std::size_t piece, long top) const override;

private:
    ReportFont captionFont_;
    ReportFont textFont_;
    std::size_t columns_;
    Facts facts_;
    long columnWidth_ = 0;
};

/// A line to sign on, at the right, behind its caption.
class ReportSignature : public ReportBlock {
public:
    ReportSignature(ReportFont font, Utilities::String caption)
        : font_(std::move(font)), caption_(std::move(caption)) {}

    void LayOut(PlatformIndependentDeviceContext& context, long width) override;
    long GetHeight(std::size_t /*piece*/) const override { return 2 * font_.GetLineHeight(); }
    void Paint(PlatformIndependentDeviceContext& context, std::size_t piece, long top) const override;
    long GetSpace() const override { return 32; }

private:
    ReportFont font_;
    Utilities::String caption_;
    long width_ = 0;
    long captionWidth_ = 0;
};

class ReportPageBreak : public ReportBlock {
public:
    void LayOut(PlatformIndependentDeviceContext& /*context*/, long /*width*/) override {}
    std::size_t GetCount() const override { return 0; }
    long GetHeight(std::size_t /*piece*/) const override { return 0; }
    void Paint(PlatformIndependentDeviceContext& /*context*/, std::size_t /*piece*/,
               long /*top*/) const override {}
    long GetSpace() const override { return 0; }
    bool EndsPage() const override { return true; }
};

/// A line across, one pixel high.
void DrawRule(PlatformIndependentDeviceContext& context, long left, long right, long y, ThemeRole role);

} // namespace GUI
