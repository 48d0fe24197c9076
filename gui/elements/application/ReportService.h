#pragma once

#include "core/base/String.h"
#include "core/component/Component.h"
#include "gui/elements/DialogDataSource.h"
#include "gui/elements/description/Description.h"

namespace GUI {

/// Writes reports to PDF files and printers: the component "ReportService". GUI thread only.
///
/// A report is described as a window is:
///
///     <Report ElementName="Samples" PageSize="A4" Margin="20">
///       <PageHeader Left="Colour report" RuleBelow="Yes"/>
///       <PageFooter ElementName="Foot" Right="Page %1 of %2"/>
///       <Heading Caption="Samples" Level="1"/>
///       <Paragraph ElementName="Origin"/>
///       <Facts ElementName="Facts" Columns="3"/>
///       <Drawing Height="240"><XYChart ElementName="Spectra" .../></Drawing>
///       <ReportTable ElementName="Readings">
///         <ReportColumn Caption="Name" Width="3"/>
///         <ReportColumn Caption="L*" NumberFormat="Lab"/>
///       </ReportTable>
///       <PageBreak/>
///       <Signature Caption="Signature"/>
///     </Report>
///
/// Sizes are in pixels of 96 an inch, margins in millimetres. Captions are keys of the language service; what
/// the data source gives is shown as it is. It is asked by element name: "Caption" of headings and
/// paragraphs, "Left", "Centre" and "Right" of page headers and footers, "Facts" (a vector of vectors of a
/// caption and a text), of tables "RowCount" (long) and then "Row 1" and so on (a vector of cells), and of
/// all elements in drawings what they ask in a window; "UpdateMessage" is the update that brings one its
/// data. In page headers and footers "%1" is the page and "%2" how many there are.
///
/// A column's "Control" is Text, Patch (the cell is a colour, drawn with a neutral surround), or Verdict
/// (Pass, Marginal, Fail or NoData: the sign and its word). With a "NumberFormat" the cell is a number and
/// flush right.
///
/// The colours are those of the theme "Report". Elements in drawings are drawn as lines, figures and texts;
/// controls of the platform are left out. A heading stays with what follows it, and a table's head is on each
/// of its pages. What the data source throws passes, and no file is written then.
class ReportService : public Utilities::Component {
public:
    /// Writes a PDF, which appears once it is whole. Gives the number of pages; 0 if it can't be written.
    virtual unsigned long SavePdf(DescriptionTree const& report, DialogDataSource* dataSource,
                                  Utilities::String const& fileName) = 0;
    /// Prints on the printer of that name, or on the system's own for an empty name. Gives the number of
    /// pages; 0 if there is no such printer or it can't be used.
    virtual unsigned long Print(DescriptionTree const& report, DialogDataSource* dataSource,
                                Utilities::String const& printer) = 0;
};

} // namespace GUI
