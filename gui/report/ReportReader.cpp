#include "gui/report/ReportReader.h"

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"
#include "gui/report/ReportBlocks.h"

namespace GUI {

using Norvelian::Utilities::Exceptions::InvalidArgumentException;
using Utilities::Anything;
using Utilities::LanguageServiceInterface;
using Utilities::Limits;
using Utilities::String;

namespace {

constexpr Attribute pageSize{"PageSize", AttributeType::Text, "A4", "A3, A4, A5, Letter or Legal"};
constexpr Attribute landscape{"Landscape", AttributeType::Flag, "No", "Pages lie on their sides"};
constexpr Attribute margin{"Margin", AttributeType::Number, "20", "Of the pages, in millimetres", false,
                           {0, 100}};
constexpr Attribute fontName{"FontName", AttributeType::Text, "Noto Sans", "Font of all texts"};
constexpr Attribute fontSize{
    "FontSize", AttributeType::Number, "14", "Of ordinary texts, in pixels of 96 an inch", false, {6, 200}};
constexpr Attribute left{"Left", AttributeType::Text, "", "Text at the left"};
constexpr Attribute centre{"Centre", AttributeType::Text, "", "Text in the middle"};
constexpr Attribute right{"Right", AttributeType::Text, "", "Text at the right"};
constexpr Attribute caption{"Caption", AttributeType::Text, "", "The text"};
constexpr Attribute level{"Level", AttributeType::Number, "2", "1 for the report's title, to 3", false,
                          {1, 3}};
constexpr Attribute condition{"Condition", AttributeType::Text, "", "What what follows holds under"};
constexpr Attribute bold{"Bold", AttributeType::Flag, "No", "The text is bold"};
constexpr Attribute columns{"Columns", AttributeType::Number, "3", "Beside each other", false, {1, 12}};
constexpr Attribute width{"Width", AttributeType::Number, "1", "Share of the table's width",
                          false,   {0.01, 1000}};
constexpr Attribute control{"Control", AttributeType::Text, "Text", "Text, Patch or Verdict"};
constexpr Attribute alignment{"Alignment", AttributeType::Text, "Left", "Left or Right"};
constexpr Attribute numberFormat{"NumberFormat", AttributeType::Text, "",
                                 "What the cells' numbers are: Lab, DeltaE, Hue and so on"};
constexpr Attribute name = CommonAttributes::elementName;

constexpr Attribute reportAttributes[] = {name, pageSize, landscape, margin, fontName, fontSize};
constexpr Attribute lineAttributes[] = {name, left, centre, right};
constexpr Attribute headingAttributes[] = {name, caption, level, condition};
constexpr Attribute paragraphAttributes[] = {name, caption, fontSize, bold};
constexpr Attribute factsAttributes[] = {name, columns};
constexpr Attribute tableAttributes[] = {name};
constexpr Attribute columnAttributes[] = {caption, width, control, alignment, numberFormat};
constexpr Attribute drawingAttributes[] = {reportDrawingHeight};
constexpr Attribute signatureAttributes[] = {name, caption};

constexpr auto part = AttributeTable::Kind::Part;
AttributeTable const reportTable("Report", nullptr, reportAttributes, part);
AttributeTable const headerTable("PageHeader", nullptr, lineAttributes, part);
AttributeTable const footerTable("PageFooter", nullptr, lineAttributes, part);
AttributeTable const headingTable("Heading", nullptr, headingAttributes, part);
AttributeTable const paragraphTable("Paragraph", nullptr, paragraphAttributes, part);
AttributeTable const factsTable("Facts", nullptr, factsAttributes, part);
AttributeTable const tableTable("ReportTable", nullptr, tableAttributes, part);
AttributeTable const columnTable("ReportColumn", nullptr, columnAttributes, part);
AttributeTable const drawingTable("Drawing", nullptr, drawingAttributes, part);
AttributeTable const breakTable("PageBreak", nullptr, {}, part);
AttributeTable const signatureTable("Signature", nullptr, signatureAttributes, part);

String TypeOf(DescriptionTree const& node) {
    return AttributeReader(node).Text(CommonAttributes::elementType);
}
String NameOf(DescriptionTree const& node) { return AttributeReader(node).Text(name); }

/// What is longer could not be read, and takes long to be measured.
String Bounded(String const& text) {
    auto const most = static_cast<long>(Limits::Get().shownText);
    return text.Length() > most ? text.Mid(0, most) : text;
}

ReportColumn ReadColumn(DescriptionTree const& node) {
    AttributeReader const reader(node);
    ReportColumn column;
    column.caption = LanguageServiceInterface::GetTranslation(reader.Text(caption));
    column.weight = reader.Number(width);
    String const kind = reader.Text(control);
    column.control = kind == "Patch"     ? ReportColumn::Control::Patch
                     : kind == "Verdict" ? ReportColumn::Control::Verdict
                                         : ReportColumn::Control::Text;
    column.number = NumberFormat::Find(reader.Text(numberFormat));
    column.isRight = column.number || reader.Text(alignment) == "Right";
    return column;
}

} // namespace

Report ReportReader::Read(DescriptionTree const& description) const {
    AttributeReader const reader(description);
    Report report;
    report.paper = {reader.Text(pageSize), reader.Flag(landscape), reader.Number(margin)};
    report.font.face = reader.Text(fontName);
    report.font.size = reader.Text(fontSize).GetShort();
    for (auto child = description.GetChildren(); child.IsValid(); ++child) {
        DescriptionTree const& node = *child.Current();
        if (TypeOf(node) == "PageHeader")
            report.header = ReadPageLine(node);
        else if (TypeOf(node) == "PageFooter")
            report.footer = ReadPageLine(node);
        else
            report.blocks.push_back(ReadBlock(node, report.font));
    }
    return report;
}

std::unique_ptr<ReportBlock> ReportReader::ReadBlock(DescriptionTree const& node,
                                                     ReportFont const& font) const {
    String const type = TypeOf(node);
    AttributeReader const reader(node);
    if (type == "Heading")
        return std::make_unique<ReportHeading>(font, reader.Long(level), TextOf(node, caption),
                                               TextOf(node, condition));
    if (type == "Paragraph") {
        ReportFont own = font;
        own.isBold = reader.Flag(bold);
        if (reader.Has(fontSize)) own.size = reader.Text(fontSize).GetShort();
        return std::make_unique<ReportParagraph>(own, TextOf(node, caption));
    }
    if (type == "Facts") return ReadFacts(node, font);
    if (type == "ReportTable") return ReadTable(node, font);
    if (type == "Drawing") return makeDrawing_(node);
    if (type == "PageBreak") return std::make_unique<ReportPageBreak>();
    if (type == "Signature") return std::make_unique<ReportSignature>(font, TextOf(node, caption));
    throw InvalidArgumentException("a report has no <" + type.GetStdString() + ">");
}

std::unique_ptr<ReportBlock> ReportReader::ReadFacts(DescriptionTree const& node,
                                                     ReportFont const& font) const {
    ReportFacts::Facts facts;
    if (Anything const told = Ask(NameOf(node), "Facts"); told.IsValid())
        for (Anything const& fact : told.GetVectorOfAnythings()) {
            auto const& pair = fact.GetVectorOfAnythings();
            facts.emplace_back(Bounded(pair[0].GetString()), Bounded(pair[1].GetString()));
        }
    return std::make_unique<ReportFacts>(font, AttributeReader(node).Long(columns), std::move(facts));
}

std::unique_ptr<ReportBlock> ReportReader::ReadTable(DescriptionTree const& node,
                                                     ReportFont const& font) const {
    std::vector<ReportColumn> described;
    for (auto child = node.GetChildren(); child.IsValid(); ++child)
        if (TypeOf(*child.Current()) == "ReportColumn") described.push_back(ReadColumn(*child.Current()));
    return std::make_unique<ReportTable>(font, std::move(described), ReadRows(NameOf(node)));
}

std::vector<ReportTable::Row> ReportReader::ReadRows(String const& table) const {
    Anything const told = Ask(table, "RowCount");
    long const count = told.IsValid() ? told.GetLong() : 0;
    auto const most = static_cast<long>(Limits::Get().samples);
    if (count > most)
        throw InvalidArgumentException(Limits::Passed("samples", Limits::Get().samples, "rows of a report"));
    std::vector<ReportTable::Row> rows;
    for (long i = 1; i <= count; ++i) {
        Anything const cells = Ask(table, String("Row ") + String(i));
        ReportTable::Row& row = rows.emplace_back();
        if (!cells.IsValid()) continue;
        for (Anything const& cell : cells.GetVectorOfAnythings())
            row.push_back(cell.IsOfTypeString() ? Anything(Bounded(cell.GetString())) : cell);
    }
    return rows;
}

ReportPageLine ReportReader::ReadPageLine(DescriptionTree const& node) const {
    return {{TextOf(node, left), TextOf(node, centre), TextOf(node, right)}};
}

Anything ReportReader::Ask(String const& element, String const& key) const {
    return dataSource_ && element.Length() != 0 ? dataSource_->GetValue(element, key) : Anything();
}

String ReportReader::TextOf(DescriptionTree const& node, Attribute const& attribute) const {
    Anything const told = Ask(NameOf(node), attribute.key);
    if (told.IsOfTypeString()) return Bounded(told.GetString());
    String const key = AttributeReader(node).Text(attribute);
    return key.Length() == 0 ? key : LanguageServiceInterface::GetTranslation(key);
}

} // namespace GUI
