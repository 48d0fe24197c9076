#pragma once

#include "gui/elements/colour/Theme.h"
#include "gui/platform/PagedDrawing.h"
#include "gui/report/ReportBlock.h"
#include "gui/report/ReportText.h"

#include <array>
#include <memory>
#include <vector>

namespace GUI {

/// At the head or foot of each page: a text at the left, in the middle and at the right, with a line towards
/// the page's middle. "%1" is the page, "%2" how many there are.
struct ReportPageLine {
    std::array<Utilities::String, 3> texts;

    bool IsEmpty() const;
};

/// A report as it is read from a description and its data.
struct Report {
    Paper paper;
    ReportFont font;
    ReportPageLine header;
    ReportPageLine footer;
    std::vector<std::unique_ptr<ReportBlock>> blocks;
};

/// Spreads the blocks of a report over pages.
class ReportLayout : public PagedDrawing {
public:
    explicit ReportLayout(Report const& report);

    /// At least one page.
    std::size_t LayOut(PlatformIndependentDeviceContext& context, long width, long height) override;
    void Paint(PlatformIndependentDeviceContext& context, std::size_t page) override;

    struct Placed {
        ReportBlock const* block = nullptr;
        std::size_t piece = 0;
        long top = 0;
        /// The block's head is over it.
        bool hasHead = false;
    };
    std::vector<std::vector<Placed>> const& GetPages() const { return pages_; }

private:
    void Place(ReportBlock const& block);
    void BeginPage();
    /// What of a block, and of those that must be on its page, has to find room together.
    long LeadOf(std::size_t index) const;
    void PaintLine(PlatformIndependentDeviceContext& context, ReportPageLine const& line, long top, long rule,
                   std::size_t page) const;

    Report const& report_;
    Theme theme_;
    ReportFont lineFont_;
    long width_ = 0;
    long height_ = 0;
    long bodyTop_ = 0;
    long bodyBottom_ = 0;
    /// Where the next piece comes.
    long y_ = 0;
    std::vector<std::vector<Placed>> pages_;
};

} // namespace GUI
