#pragma once

#include "gui/elements/DialogDataSource.h"
#include "gui/elements/description/Attributes.h"
#include "gui/report/ReportLayout.h"
#include "gui/report/ReportTable.h"

#include <functional>

namespace GUI {

/// Reads a report from its description and its data source; see `ReportService`.
///
/// Throws `InvalidArgumentException` for a child that no report has, and for more rows than
/// `Utilities::Limits` allows. What the data source throws passes.
class ReportReader {
public:
    /// Makes the block for a node with elements to be drawn.
    using MakeDrawing = std::function<std::unique_ptr<ReportBlock>(DescriptionTree const& node)>;

    /// `dataSource` may be null.
    ReportReader(DialogDataSource* dataSource, MakeDrawing makeDrawing)
        : dataSource_(dataSource), makeDrawing_(std::move(makeDrawing)) {}

    Report Read(DescriptionTree const& description) const;

private:
    std::unique_ptr<ReportBlock> ReadBlock(DescriptionTree const& node, ReportFont const& font) const;
    std::unique_ptr<ReportBlock> ReadFacts(DescriptionTree const& node, ReportFont const& font) const;
    std::unique_ptr<ReportBlock> ReadTable(DescriptionTree const& node, ReportFont const& font) const;
    std::vector<ReportTable::Row> ReadRows(Utilities::String const& table) const;
    ReportPageLine ReadPageLine(DescriptionTree const& node) const;
    Utilities::Anything Ask(Utilities::String const& element, Utilities::String const& key) const;
    /// What the data source gives, else the translated attribute.
    Utilities::String TextOf(DescriptionTree const& node, Attribute const& attribute) const;

    DialogDataSource* dataSource_;
    MakeDrawing makeDrawing_;
};

/// Height of the elements in a drawing.
inline constexpr Attribute reportDrawingHeight{
    "Height", AttributeType::Number, "240", "Height in pixels of 96 an inch", false, unsignedRange};

} // namespace GUI
