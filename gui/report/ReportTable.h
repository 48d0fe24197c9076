#pragma once

#include "core/values/Anything.h"
#include "gui/elements/drawing/NumberFormat.h"
#include "gui/report/ReportBlock.h"
#include "gui/report/ReportText.h"

#include <optional>
#include <vector>

namespace GUI {

struct ReportColumn {
    enum class Control : std::uint8_t { Text, Patch, Verdict };

    Utilities::String caption;
    /// Its share of the table's width.
    double weight = 1;
    Control control = Control::Text;
    bool isRight = false;
    /// Of cells that are numbers.
    std::optional<NumberFormat> number;
};

/// A table whose head is on each page that it reaches. Texts that are too wide for their column go on in
/// further lines; numbers are never cut.
class ReportTable : public ReportBlock {
public:
    using Row = std::vector<Utilities::Anything>;

    ReportTable(ReportFont font, std::vector<ReportColumn> columns, std::vector<Row> rows);

    void LayOut(PlatformIndependentDeviceContext& context, long width) override;
    std::size_t GetCount() const override { return rows_.size(); }
    long GetHeight(std::size_t piece) const override { return heights_[piece]; }
    void Paint(PlatformIndependentDeviceContext& context, std::size_t piece, long top) const override;
    long GetHeadHeight() const override;
    void PaintHead(PlatformIndependentDeviceContext& context, long top) const override;

private:
    struct Place {
        long left = 0;
        long right = 0;
    };

    Utilities::String TextOf(std::size_t row, std::size_t column) const;
    std::vector<Utilities::String> LinesOf(PlatformIndependentDeviceContext& context,
                                           Utilities::String const& text, std::size_t column) const;
    void PaintText(PlatformIndependentDeviceContext& context, Utilities::String const& text,
                   std::size_t column, long top) const;
    void PaintCell(PlatformIndependentDeviceContext& context, std::size_t row, std::size_t column,
                   long top) const;

    ReportFont font_;
    ReportFont headFont_;
    std::vector<ReportColumn> columns_;
    std::vector<Row> rows_;
    std::vector<Place> places_;
    std::vector<long> heights_;
    long headLines_ = 1;
    long width_ = 0;
};

} // namespace GUI
