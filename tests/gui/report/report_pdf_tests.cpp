// A report as a PDF, read back by another program.
#include "gui/elements/application/ReportService.h"
#include "tests/gui/shell/WindowFixture.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

namespace {

using namespace Tests;

class ReportPdf : public Windows {
protected:
    Utilities::SmartPointer<GUI::ReportService> service_ =
        Utilities::ResolveComponent<GUI::ReportService>("ReportService");
    TemporaryDirectory directory_;
};

} // namespace

TEST_F(ReportPdf, HasItsPagesTextsAndLinesOnly) {
    handler_.values["T.RowCount"] = 60L;
    for (int i = 1; i <= 60; ++i) {
        Anything::VectorOfAnythings row(1);
        row[0] = ("Gr\xC3\xBCn " + std::to_string(i)).c_str();
        handler_.values["T.Row " + std::to_string(i)] = row;
    }
    handler_.values["XYGraph.XScaleEnd"] = 100.0;
    auto const report = Node({{"GUIElementType", "Report"}, {"PageSize", "A5"}},
                             {Node({{"GUIElementType", "PageFooter"}, {"Right", "Page %1 of %2"}}),
                              Node({{"GUIElementType", "Heading"}, {"Caption", "Colours"}, {"Level", "1"}}),
                              Node({{"GUIElementType", "Drawing"}, {"Height", "150"}},
                                   {Node({{"GUIElementType", "FrameBox"},
                                          {"ElementName", "Panel"},
                                          {"Title", "In nm"},
                                          {"Top", "30"}},
                                         {Node({{"GUIElementType", "XYChart"},
                                                {"ElementName", "Chart"},
                                                {"NumbersAtLines", "Yes"},
                                                {"XScaleDrawLines", "50"}})})}),
                              Node({{"GUIElementType", "ReportTable"}, {"ElementName", "T"}},
                                   {Node({{"GUIElementType", "ReportColumn"}, {"Caption", "Name"}})})});
    std::string const path = directory_ / "report.pdf";
    auto const living = GUI::GUIElement::GetLivingCount();
    ASSERT_EQ(service_->SavePdf(*report, &handler_, path), 4U);
    EXPECT_EQ(GUI::GUIElement::GetLivingCount(), living) << "the chart is gone again";
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray const bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_FALSE(bytes.contains("/Subtype /Image")) << "nothing is drawn as pixels";
    if (QStandardPaths::findExecutable("pdftotext").isEmpty()) GTEST_SKIP() << "no program reads PDF";
    QProcess reader;
    reader.start("pdftotext", {"-layout", QString::fromStdString(path), "-"});
    ASSERT_TRUE(reader.waitForFinished());
    auto const pages = reader.readAllStandardOutput().split('\f');
    ASSERT_EQ(pages.size(), 5) << "each page ends with a form feed";
    for (int page = 0; page < 4; ++page) {
        EXPECT_TRUE(pages[page].contains("Page " + QByteArray::number(page + 1) + " of 4"));
        EXPECT_TRUE(pages[page].contains("Name")) << "the table's head";
    }
    EXPECT_TRUE(pages[0].contains("Colours"));
    EXPECT_TRUE(pages[0].contains("In nm")) << "a panel's title";
    EXPECT_TRUE(pages[0].contains("100")) << "the chart's numbers are texts";
    EXPECT_TRUE(pages[3].contains("Gr\xC3\xBCn 60"));
}

TEST_F(ReportPdf, LeavesNoFileBehindThatIsNotWhole) {
    std::string const path = directory_ / "report.pdf";
    auto const bad = Node({{"GUIElementType", "Report"}}, {Node({{"GUIElementType", "Button"}})});
    EXPECT_ANY_THROW(service_->SavePdf(*bad, &handler_, path));
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path)));
    auto const empty = Node({{"GUIElementType", "Report"}});
    EXPECT_EQ(service_->SavePdf(*empty, nullptr, directory_ / "missing/report.pdf"), 0U);
    EXPECT_EQ(service_->Print(*empty, nullptr, "no such printer"), 0U);
    EXPECT_EQ(service_->SavePdf(*empty, nullptr, path), 1U);
}
