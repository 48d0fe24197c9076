// Bars, crosses, wheels, colour planes and smooth curves painted into a picture of 800 by 600 pixels. Ours
// are whole paints with background, outline and all questions to the data source; QCustomPlot's rows include
// its axes and labels, so the charts here have scales with numbers too.

#include "gui/colour/GamutPlane.h"
#include "gui/elements/Pane.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/SvgDeviceContext_PC.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <lcms2.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

#ifdef HAVE_QCUSTOMPLOT
#include <qcustomplot.h>
#endif

namespace {

using GUI::RGBVector;
using TestSupport::Node;
using Utilities::Anything;
using Utilities::String;
using Attributes = std::initializer_list<std::pair<char const*, char const*>>;
using Draw = std::function<void(QImage&)>;

constexpr int width = 800;
constexpr int height = 600;

QColor ColorOf(int i) { return QColor::fromHsv(i * 37 % 360, 200, 180); }
RGBVector VectorOf(int i) {
    QColor const color = ColorOf(i);
    return {static_cast<unsigned char>(color.red()), static_cast<unsigned char>(color.green()),
            static_cast<unsigned char>(color.blue())};
}

void Add(std::string const& name, Draw const& draw) {
    benchmark::RegisterBenchmark(name.c_str(), [draw](benchmark::State& state) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::white);
        QImage const before = image.copy();
        for (auto _ : state) draw(image);
        if (image == before) state.SkipWithError("nothing is drawn");
    })->Unit(benchmark::kMillisecond);
}

/// Windows of all elements, without a platform.
TestSupport::FakeWindowHost& Host() {
    static TestSupport::FakeWindowHost host;
    return host;
}

/// An element that is painted with all that is inside it.
struct Element {
    TestSupport::FakeDataSource source;
    Utilities::SmartPointer<GUI::GUIElement> element;

    void Make(Attributes attributes, std::string const& message) {
        auto const node = Node(attributes);
        (*node)["ElementName"] = "E";
        (*node)["BackgroundColor"] = "255,255,255";
        element = Host().Create(node, &source);
        element->SetSize(width, height);
        element->OnUpdate("Properties");
        element->OnUpdate(String(message));
    }
    void Scale(char const* graph, double xBegin, double xEnd, double yBegin, double yEnd) {
        source.values[{graph, "XScaleBegin"}] = xBegin;
        source.values[{graph, "XScaleEnd"}] = xEnd;
        source.values[{graph, "YScaleBegin"}] = yBegin;
        source.values[{graph, "YScaleEnd"}] = yEnd;
        source.values[{graph, "XScaleDrawLines"}] = (xEnd - xBegin) / 8;
        source.values[{graph, "YScaleDrawLines"}] = (yEnd - yBegin) / 5;
    }
    void Paint(QImage& image) {
        GUI::PlatformIndependentDeviceContext_PC context(image);
        Host().Paint(dynamic_cast<GUI::Pane&>(*element), context);
    }
    static void AddOurs(std::string const& name, std::shared_ptr<Element> const& element) {
        Add(name + "/ours", [element](QImage& image) { element->Paint(image); });
    }
};

#ifdef HAVE_QCUSTOMPLOT
std::shared_ptr<QCustomPlot> MakePlot(double xBegin, double xEnd, double yBegin, double yEnd) {
    auto plot = std::make_shared<QCustomPlot>();
    plot->resize(width, height);
    plot->setNotAntialiasedElements(QCP::aeAll);
    plot->xAxis->setRange(xBegin, xEnd);
    plot->yAxis->setRange(yBegin, yEnd);
    return plot;
}

void AddPlot(std::string const& name, std::shared_ptr<QCustomPlot> const& plot) {
    Add(name, [plot](QImage& image) {
        plot->replot(QCustomPlot::rpQueuedRefresh);
        QPainter painter(&image);
        plot->render(&painter, {}, {}, QWidget::DrawChildren);
    });
}
#endif

// ------------------------------------------------------------------ bars

double BarValue(int i) { return 0.1 + 0.8 * (i * 7919 % 1000) / 1000.0; }

void AddBars(int count) {
    std::string const name = "chart.bars-" + std::to_string(count);
    auto const ours = std::make_shared<Element>();
    ours->Scale("BarGraph", 0, count, 0, 1);
    auto& values = ours->source.values;
    values[{"BarGraph", "ValueBegin"}] = "0.5";
    values[{"BarGraph", "ValueStep"}] = "1";
    values[{"BarGraph", "BarWidth"}] = "0.75";
    Anything::VectorOfAnythings column(static_cast<std::uint32_t>(count) + 1);
    column[0] = "bars";
    for (int i = 0; i < count; ++i) column[static_cast<std::uint32_t>(i) + 1] = BarValue(i);
    values[{"BarGraph", "1"}] = Anything(column);
    ours->Make({{"GUIElementType", "BarChart"},
                {"JustificationOnX", "Yes"},
                {"NumbersAtLines", "Yes"},
                {"XScaleDrawLines", "10"},
                {"YScaleDrawLines", "0.2"}},
               "1;1-" + std::to_string(count) + ";1");
    Element::AddOurs(name, ours);
    Add(name + "/floor:fillRect", [count](QImage& image) {
        image.fill(Qt::white);
        QPainter painter(&image);
        double const step = 740.0 / count;
        for (int i = 0; i < count; ++i) {
            int const high = static_cast<int>(BarValue(i) * 560);
            painter.fillRect(45 + static_cast<int>(i * step), 575 - high,
                             std::max(static_cast<int>(step * 0.75), 1), high, QColor(200, 60, 60));
        }
    });
#ifdef HAVE_QCUSTOMPLOT
    auto const plot = MakePlot(-1, count, 0, 1);
    auto* const bars = new QCPBars(plot->xAxis, plot->yAxis);
    bars->setBrush(QColor(200, 60, 60));
    bars->setPen(Qt::NoPen);
    QVector<double> keys;
    QVector<double> heights;
    for (int i = 0; i < count; ++i) {
        keys << i;
        heights << BarValue(i);
    }
    bars->setData(keys, heights, true);
    AddPlot(name + "/peer:QCPBars", plot);
#endif
}

// ------------------------------------------------------------------ crosses

std::vector<QPointF> Points(int count) {
    std::mt19937 random(7);
    std::normal_distribution<double> normal(0, 30);
    std::vector<QPointF> points;
    for (int i = 0; i < count; ++i) {
        double const x = normal(random);
        points.emplace_back(x, normal(random));
    }
    return points;
}

void AddCrosses(int count) {
    std::string const name = "chart.crosses-" + std::to_string(count);
    auto const points = std::make_shared<std::vector<QPointF> const>(Points(count));
    auto const ours = std::make_shared<Element>();
    ours->Scale("E", -100, 100, -100, 100);
    for (int i = 0; i < count; ++i) {
        Anything::VectorOfAnythings pair(2);
        pair[0] = (*points)[static_cast<std::size_t>(i)].x();
        pair[1] = (*points)[static_cast<std::size_t>(i)].y();
        ours->source.values[{"E", std::to_string(i + 1)}] = Anything(pair);
    }
    ours->Make({{"GUIElementType", "CrossGraph"}}, "1;1-1;" + std::to_string(count));
    Element::AddOurs(name, ours);
    Add(name + "/floor:drawLine", [points](QImage& image) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setPen(QPen(Qt::black, 0));
        for (QPointF const& point : *points) {
            int const x = static_cast<int>(400 + point.x() * 4);
            int const y = static_cast<int>(300 - point.y() * 3);
            painter.drawLine(x - 6, y - 6, x + 6, y + 6);
            painter.drawLine(x - 6, y + 6, x + 6, y - 6);
        }
    });
#ifdef HAVE_QCUSTOMPLOT
    auto const plot = MakePlot(-100, 100, -100, 100);
    QCPGraph* const graph = plot->addGraph();
    graph->setLineStyle(QCPGraph::lsNone);
    graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssCross, 12));
    graph->setAdaptiveSampling(false);
    QVector<double> x;
    QVector<double> y;
    for (QPointF const& point : *points) {
        x << point.x();
        y << point.y();
    }
    graph->setData(x, y);
    AddPlot(name + "/peer:QCustomPlot", plot);
#endif
}

// ------------------------------------------------------------------ wheels

void AddWheel(int slices) {
    std::string const name = "chart.wheel-" + std::to_string(slices);
    auto const ours = std::make_shared<Element>();
    ours->source.values[{"E", "NumberOfSlices"}] = static_cast<short>(slices);
    for (int i = 0; i < slices; ++i)
        ours->source.values[{"E", "Color of Slice " + std::to_string(i)}] = VectorOf(i).GetAnything();
    ours->Make({{"GUIElementType", "ColorWheel"}, {"Smooth", "Yes"}, {"BorderWidth", "0"}}, "data");
    Element::AddOurs(name, ours);
    Add(name + "/floor:drawPie", [slices](QImage& image) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        int const step = 5760 / slices;
        for (int i = 0; i < slices; ++i) {
            painter.setBrush(ColorOf(i));
            painter.drawPie(100, 0, 600, 600, i * step, step);
        }
    });
}

// ------------------------------------------------------------------ parts

/// As a window paints a part: the element with what is in it, clipped to a box.
void PaintPart(GUI::Pane& pane, QImage& image, QRect const& part) {
    GUI::PlatformIndependentDeviceContext_PC context(image, {QPoint(), part}, {&image, QPoint()});
    Host().Paint(pane, context);
}

/// One field of a sky takes another colour: the question for all colours, and the paint of the field's part.
void AddSky() {
    auto const ours = std::make_shared<Element>();
    ours->Make(
        {{"GUIElementType", "PalimarSky"}, {"Smooth", "Yes"}, {"OuterRadius", "290"}, {"InnerRadius", "190"}},
        "data");
    for (int i = 0; i < 12; ++i)
        ours->source.values[{"E", "Color of Slice " + std::to_string(100 + i)}] = VectorOf(i).GetAnything();
    ours->element->OnUpdate("data");
    auto const turn = std::make_shared<int>(0);
    Add("chart.sky-field/ours", [=](QImage& image) {
        ours->source.values[{"E", "Color of Slice 102"}] = VectorOf(++*turn % 50).GetAnything();
        ours->element->OnUpdate("data");
        // The box that the element asks its window for.
        PaintPart(dynamic_cast<GUI::Pane&>(*ours->element), image, QRect(384, 0, 197, 219));
    });
    Add("chart.sky-field/floor:whole", [=](QImage& image) {
        ours->source.values[{"E", "Color of Slice 102"}] = VectorOf(++*turn % 50).GetAnything();
        ours->element->OnUpdate("data");
        ours->Paint(image);
    });
}

/// The message for a value of a feed, with the paint of its part: late in a shift and early in it.
void AddLive() {
    for (int const number : {30000, 300}) {
        auto const ours = std::make_shared<Element>();
        ours->Scale("E", 0, 36000, 0, 1);
        auto& values = ours->source.values;
        values[{"E", "ValueBegin"}] = 1.0;
        values[{"E", "ValueStep"}] = 1.0;
        Anything::VectorOfAnythings column(static_cast<std::uint32_t>(number));
        column[0] = "feed";
        for (std::uint32_t i = 1; i < column.GetSize(); ++i) column[i] = 0.5 + 0.3 * std::sin(0.01 * i);
        values[{"E", "1"}] = Anything(column);
        ours->Make({{"GUIElementType", "XYGraph"}, {"Live", "Yes"}, {"Smooth", "Yes"}, {"Axes", "Edges"}},
                   "1;1-" + std::to_string(number - 1) + ";1");
        Anything::VectorOfAnythings added(2);
        added[0] = "feed";
        added[1] = 0.7;
        std::string const last = std::to_string(number);
        values[{"E", "1;" + last + "-" + last}] = Anything(added);
        std::string const message = last + ";1-" + last + ";1";
        int const place = number * width / 36000;
        Add(std::string("chart.live/") + (number > 300 ? "ours" : "floor:300th"), [=](QImage& image) {
            ours->element->OnUpdate(String(message));
            PaintPart(dynamic_cast<GUI::Pane&>(*ours->element), image, QRect(place - 8, 0, 17, height));
        });
    }
}

// ------------------------------------------------------------------ planes

void AddPlane() {
    constexpr std::size_t side = 512;
    constexpr double step = 200.0 / side;
    auto const transform = std::make_shared<GUI::GamutPlane::Transform const>();
    auto const plane = std::make_shared<GUI::GamutPlane const>(*transform);
    auto const show = [](QImage& image, std::uint32_t const* pixels) {
        image.setPixel(0, 0, pixels[side] | 1);
    };
    Add("chart.plane-512/ours", [=](QImage& image) {
        GUI::GamutPlane::Place const place{{50, -100, 100}, {0, step, 0}, {0, 0, -step}};
        auto const pixels = plane->Compute(place, side, side, {0xC6C6C6, 0x161616, 1});
        show(image, pixels.data());
    });
    // The fastest that Little CMS has: a table, without the gamut.
    auto const lab = std::make_shared<std::vector<cmsUInt16Number>>(3 * side * side);
    for (std::size_t i = 0; i < side * side; ++i) {
        cmsCIELab const colour{50, -100 + step * static_cast<double>(i % side),
                               100 - step * static_cast<double>(i / side)};
        cmsFloat2LabEncoded(lab->data() + 3 * i, &colour);
    }
    cmsHPROFILE const from = cmsCreateLab4Profile(nullptr);
    cmsHPROFILE const to = cmsCreate_sRGBProfile();
    cmsHTRANSFORM const table =
        cmsCreateTransform(from, TYPE_Lab_16, to, TYPE_BGRA_8, INTENT_RELATIVE_COLORIMETRIC, 0);
    Add("chart.plane-512/peer:LittleCMS", [=](QImage& image) {
        std::vector<std::uint32_t> pixels(side * side);
        cmsDoTransform(table, lab->data(), pixels.data(), side * side);
        show(image, pixels.data());
    });
}

// ------------------------------------------------------------------ smooth curves

constexpr int curves = 100;
constexpr int points = 36;
double CurveValue(int i, int k) {
    return 0.5 + 0.3 * std::sin(0.1 * i + 0.18 * k) + 0.1 * std::cos(0.7 * i + 0.31 * k);
}

std::shared_ptr<Element> MakeCurves(double penWidth) {
    auto ours = std::make_shared<Element>();
    ours->Scale("E", 380, 730, 0, 1);
    auto& values = ours->source.values;
    values[{"E", "ValueBegin"}] = 380.0;
    values[{"E", "ValueStep"}] = 10.0;
    values[{"E", "LineWidth"}] = std::lround(penWidth);
    for (int i = 0; i < curves; ++i) {
        Anything::VectorOfAnythings column(points + 1);
        column[0] = "curve";
        for (int k = 0; k < points; ++k) column[static_cast<std::uint32_t>(k) + 1] = CurveValue(i, k);
        values[{"E", std::to_string(i + 1)}] = Anything(column);
        QColor const color = ColorOf(i);
        values[{"E", "CurveColor " + std::to_string(i)}] =
            String(std::to_string(color.red()) + ";" + std::to_string(color.green()) + ";" +
                   std::to_string(color.blue()));
    }
    ours->Make({{"GUIElementType", "XYGraph"}, {"Smooth", "Yes"}, {"DrawAxis", "No"}},
               "1;1-36;" + std::to_string(curves));
    return ours;
}

void DrawPolylines(QPainter& painter, double penWidth) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(0, 0, width, height);
    std::vector<QPointF> line;
    for (int i = 0; i < curves; ++i) {
        painter.setPen(QPen(ColorOf(i), penWidth <= 1 ? 0 : penWidth));
        line.clear();
        for (int k = 0; k < points; ++k)
            line.emplace_back(k * 800.0 / (points - 1), (1 - CurveValue(i, k)) * 600);
        painter.drawPolyline(line.data(), static_cast<int>(line.size()));
    }
}

void AddCurves(std::string const& name, double penWidth) {
    Element::AddOurs(name, MakeCurves(penWidth));
    Add(name + "/floor:drawPolyline", [=](QImage& image) {
        image.fill(Qt::white);
        QPainter painter(&image);
        DrawPolylines(painter, penWidth);
    });
}

// ------------------------------------------------------------------ exports

/// A file in memory, of which something depends on what is drawn.
using Export = std::function<QByteArray()>;

void AddExport(std::string const& name, Export const& make) {
    Add(name, [make](QImage& image) { image.setPixel(0, 0, static_cast<unsigned>(make().size())); });
}

QByteArray SavePng(QImage const& image, int quality) {
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    image.save(&file, "png", quality);
    return bytes;
}

QByteArray SavePdf(std::function<void(QPainter&)> const& draw) {
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    QPdfWriter writer(&file);
    writer.setResolution(720);
    writer.setPageMargins({});
    writer.setPageSize(QPageSize(QSizeF(width, height), QPageSize::Point));
    QPainter painter(&writer);
    painter.scale(10, 10);
    draw(painter);
    painter.end();
    return bytes;
}

void AddExports() {
    auto const ours = MakeCurves(1);
    auto const pane = [ours]() -> GUI::Pane& { return dynamic_cast<GUI::Pane&>(*ours->element); };
    AddExport("chart.export-svg/ours", [=] {
        std::string svg;
        {
            GUI::SvgDeviceContext_PC context(svg);
            Host().Paint(pane(), context);
        }
        return QByteArray::fromStdString(svg);
    });
    AddExport("chart.export-pdf/ours", [=] {
        return SavePdf([&](QPainter& painter) {
            GUI::PlatformIndependentDeviceContext_PC context(painter, {QPoint(), QRect(0, 0, width, height)});
            Host().Paint(pane(), context);
        });
    });
    AddExport("chart.export-pdf/floor:QPdfWriter",
              [] { return SavePdf([](QPainter& painter) { DrawPolylines(painter, 1); }); });
    // 2000 by 1400 pixels.
    auto const picture = [=] {
        QImage image(2000, 1400, QImage::Format_RGB32);
        image.fill(Qt::white);
        image.setDevicePixelRatio(2.333);
        {
            QPainter painter(&image);
            GUI::PlatformIndependentDeviceContext_PC context(painter, {QPoint(), QRect(0, 0, width, height)},
                                                             {&image, QPoint()});
            Host().Paint(pane(), context);
        }
        return image;
    };
    AddExport("chart.export-png/ours", [=] { return SavePng(picture(), 80); });
    AddExport("chart.export-png/floor:QImage::save", [=] { return SavePng(picture(), -1); });
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication const application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (int const count : {36, 1000}) AddBars(count);
    // A message names no more than 65535 points.
    for (int const count : {1000, 65000}) AddCrosses(count);
    for (int const slices : {12, 100}) AddWheel(slices);
    AddSky();
    AddLive();
    AddPlane();
    AddExports();
    AddCurves("chart.smooth-curves-100x36", 1);
    AddCurves("chart.smooth-curves-wide-100x36", 2);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
