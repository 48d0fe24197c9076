// Elements drawn into files, on the offscreen platform.
#include "tests/gui/shell/WindowFixture.h"

#include <QColorSpace>
#include <QDomDocument>
#include <QFile>
#include <QImage>

namespace {

using namespace Tests;

class ElementPictures : public Windows {
protected:
    /// A chart of 260 by 150, with its graph as a pane inside.
    GUI::GUIElement& MakeChart() {
        auto const chart = Node({{"GUIElementType", "XYChart"},
                                 {"ElementName", "Chart"},
                                 {"BackgroundColor", "10,20,30"},
                                 {"GraphColor", "1,200,3"}});
        auto const frame = Node(
            {{"GUIElementType", "FrameBox"}, {"Left", "20"}, {"Right", "20"}, {"Bottom", "50"}}, {chart});
        handler_.values["XYGraph.XScaleEnd"] = 100.0;
        auto& window = Make<GUI::GUIElement>(Top("Window", "Main", {}, {frame}));
        return window.FindElement("Chart");
    }
    GUI::ApplicationImplementation& Platform() { return environment->app->GetImplementation(); }
    TemporaryDirectory directory_;
};

} // namespace

TEST_F(ElementPictures, AreDrawnInTheirOwnPixels) {
    GUI::GUIElement& chart = MakeChart();
    for (unsigned long const width : {0UL, 520UL, 130UL}) {
        std::string const path = directory_ / "chart.png";
        ASSERT_TRUE(Platform().SaveElementPicture(chart, path, {"", width, ""}));
        QImage const picture(QString::fromStdString(path));
        double const scale = width == 0 ? 1 : static_cast<double>(width) / 260;
        EXPECT_EQ(picture.size(), QSize(260, 150) * scale);
        EXPECT_EQ(picture.colorSpace(), QColorSpace(QColorSpace::SRgb));
        auto const at = [&](int x, int y) { return picture.pixelColor((QPointF(x, y) * scale).toPoint()); };
        EXPECT_EQ(at(2, 2), QColor(10, 20, 30));
        EXPECT_EQ(at(120, 60), QColor(1, 200, 3)) << "the graph inside, " << width << " wide";
        EXPECT_EQ(at(120, 145), QColor(10, 20, 30)) << "below the graph";
    }
}

TEST_F(ElementPictures, AreLinesAndTextsOnAPage) {
    GUI::GUIElement& chart = MakeChart();
    std::string const path = directory_ / "chart.pdf";
    ASSERT_TRUE(Platform().SaveElementPicture(chart, path, {"", 520, ""}));
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray const page = file.readAll();
    EXPECT_TRUE(page.startsWith("%PDF"));
    EXPECT_TRUE(page.contains("/MediaBox [0 0 520"));
    EXPECT_TRUE(page.contains("/Font"));
    EXPECT_FALSE(page.contains("/Subtype /Image")) << "nothing is drawn as pixels";
}

TEST_F(ElementPictures, AreADrawingThatClipsEachPane) {
    handler_.values["XYGraph.XScaleDrawLines"] = 50.0;
    GUI::GUIElement& chart = MakeChart();
    std::string const svg = Platform().RenderElement(chart, {"svg", 520, "Report"});
    QDomDocument drawing;
    ASSERT_TRUE(drawing.setContent(QString::fromStdString(svg))) << svg;
    QDomElement const root = drawing.documentElement();
    EXPECT_EQ(root.attribute("width"), "520");
    EXPECT_EQ(root.attribute("viewBox"), "0 0 260 150");
    auto const panes = root.childNodes();
    ASSERT_EQ(panes.size(), 2) << "the chart and its graph";
    QDomElement const graph = panes.at(1).toElement();
    EXPECT_EQ(graph.attribute("x") + " " + graph.attribute("width"), "35 220");
    EXPECT_EQ(graph.firstChildElement("rect").attribute("fill"), "#01c803");
    EXPECT_EQ(graph.firstChildElement("line").attribute("stroke"), "#404040") << "the theme's axis";
    EXPECT_EQ(graph.firstChildElement("line").attribute("stroke-width"), "8") << "of 5, wider on paper";
    EXPECT_EQ(panes.at(0).firstChildElement("text").attribute("fill"), "#000000");
}

TEST_F(ElementPictures, FillAPage) {
    GUI::GUIElement& chart = MakeChart();
    std::string const path = directory_ / "page.pdf";
    ASSERT_TRUE(Platform().PrintElement(chart, path, {}));
    EXPECT_NE(ReadFile(path).find("/MediaBox [0 0 84"), std::string::npos) << "across";
}

TEST_F(ElementPictures, OrNothingIsLeftBehind) {
    GUI::GUIElement& chart = MakeChart();
    EXPECT_FALSE(Platform().SaveElementPicture(chart, directory_ / "chart", {}));
    EXPECT_FALSE(Platform().SaveElementPicture(chart, directory_ / "chart.unknown", {}));
    EXPECT_FALSE(Platform().SaveElementPicture(chart, directory_ / "chart.png", {"", 60000, ""}));
    EXPECT_FALSE(Platform().SaveElementPicture(chart, directory_ / "missing/chart.png", {}));
    EXPECT_FALSE(QFile::exists(QString::fromStdString(directory_ / "chart.png")));
}
