// Charts painted into a picture of 800 by 600 pixels, against the platform painter's own figures for the
// same data (drawPolyline with a clip, drawEllipse without an outline: the least that a chart could do).
// Ours are whole paints with background, outline, many colours and all questions to the data source. Each
// checks its picture against every line or spot drawn one by one.

#include "gui/charts/XYColorChart.h"
#include "gui/charts/XYGraph.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "tests/support/FakeWindowHost.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

using GUI::PlatformIndependentDeviceContext_PC;
using GUI::RGBVector;
using TestSupport::Node;
using Utilities::Anything;
using Utilities::String;

constexpr int imageWidth = 800;
constexpr int imageHeight = 600;
/// The plot within the picture.
constexpr int left = 45, top = 15, plotWidth = 740, plotHeight = 560;

QImage Blank() {
    QImage image(imageWidth, imageHeight, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

QColor ColorOf(long i) { return QColor::fromHsv(static_cast<int>(i * 37 % 360), 200, 180); }
RGBVector VectorOf(long i) {
    QColor const color = ColorOf(i);
    return {static_cast<unsigned char>(color.red()), static_cast<unsigned char>(color.green()),
            static_cast<unsigned char>(color.blue())};
}

/// A host's values by element and name.
class Source : public GUI::DialogDataSource {
public:
    Utilities::Map<String, GUI::AttributeMap> values{997};

    void SetValue(String const&, String const&, Anything const&) override {}
    Anything GetValue(String const& element, String const& name) override {
        auto const names = values.Find(element);
        if (!names.IsValid()) return {};
        auto const found = names.GetValue().Find(name);
        return found.IsValid() ? found.GetValue() : Anything();
    }
    void SetCallback(String const&, String const&, Utilities::Callback const&) override {}
    Utilities::Callback GetCallback(String const&, String const&) override { return {}; }
};

template <class Paint> void Run(benchmark::State& state, Paint const& paint) {
    QImage image = Blank();
    for (auto _ : state) paint(image);
}

// ------------------------------------------------------------------ curves

/// Reflectances between 0 and 1 at equal distances from 380 to 730 nm.
std::vector<std::vector<double>> MakeCurves(int count, int points) {
    std::mt19937 random(42);
    std::uniform_real_distribution<double> unit(0, 1);
    std::vector<std::vector<double>> curves(static_cast<std::size_t>(count));
    for (auto& curve : curves) {
        double const base = 0.1 + 0.6 * unit(random), size = 0.25 * unit(random);
        double const waves = 1 + 4 * unit(random), phase = 6 * unit(random);
        for (int i = 0; i < points; ++i) {
            double const t = static_cast<double>(i) / (points - 1);
            curve.push_back(base + size * std::sin(waves * 6.28 * t + phase) + 0.02 * (unit(random) - 0.5));
        }
    }
    return curves;
}

struct Curves {
    std::vector<std::vector<double>> values;
    double step;
    Source source;
    TestSupport::FakeWindowHost host;
    Utilities::SmartPointer<GUI::GUIElement> graph;

    Curves(int count, int points) : values(MakeCurves(count, points)), step(350.0 / (points - 1)) {
        auto& own = source.values["Graph"];
        own["XScaleBegin"] = 380.0;
        own["XScaleEnd"] = 730.0;
        own["YScaleBegin"] = 0.0;
        own["YScaleEnd"] = 1.0;
        own["ValueBegin"] = 380.0;
        own["ValueStep"] = step;
        for (int i = 0; i < count; ++i) {
            Anything::VectorOfAnythings column(static_cast<std::uint32_t>(points) + 1);
            column[0] = "curve";
            for (int k = 0; k < points; ++k) column[static_cast<std::uint32_t>(k) + 1] = values[i][k];
            own[String(static_cast<long>(i))] = column;
            QColor const color = ColorOf(i);
            own[String("CurveColor ") + String(static_cast<long>(i))] =
                String(std::to_string(color.red()) + ";" + std::to_string(color.green()) + ";" +
                       std::to_string(color.blue()));
        }
        graph = host.Create(Node({{"GUIElementType", "XYGraph"},
                                  {"ElementName", "Graph"},
                                  {"DrawAxis", "No"},
                                  {"BackgroundColor", "255,255,255"},
                                  {"Left", "45"},
                                  {"Top", "15"},
                                  {"Right", "15"},
                                  {"Bottom", "25"}}),
                            &source);
        graph->SetSize(imageWidth, imageHeight);
        graph->OnUpdate(String("0;0-0;" + std::to_string(count - 1)));
    }
    void Paint(QImage& image) const {
        PlatformIndependentDeviceContext_PC context(image);
        dynamic_cast<GUI::Pane&>(*graph).OnPaint(context);
    }
    /// Every line by itself.
    QImage Expected() const {
        QImage image = Blank();
        PlatformIndependentDeviceContext_PC context(image);
        auto& pane = dynamic_cast<GUI::Graph&>(*graph);
        pane.Graph::OnPaint(context);
        for (std::size_t i = 0; i < values.size(); ++i) {
            context.SetPen(VectorOf(static_cast<long>(i)), 1, 0);
            for (std::size_t k = 0; k < values[i].size(); ++k) {
                short x = 0, y = 0;
                pane.ValueToPixel(380 + static_cast<double>(k) * step, values[i][k], x, y);
                k == 0 ? context.MoveTo(x, y) : context.LineTo(x, y);
            }
        }
        return image;
    }
};

void OurCurves(benchmark::State& state, Curves const& curves) {
    Run(state, [&](QImage& image) { curves.Paint(image); });
    QImage image = Blank();
    curves.Paint(image);
    if (image != curves.Expected() || image == Blank()) state.SkipWithError("not the picture of all lines");
}

void Polylines(benchmark::State& state, Curves const& curves) {
    std::vector<QPointF> points;
    Run(state, [&](QImage& image) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setClipRect(left, top, plotWidth, plotHeight);
        for (std::size_t i = 0; i < curves.values.size(); ++i) {
            painter.setPen(QPen(ColorOf(static_cast<long>(i)), 0));
            points.clear();
            for (std::size_t k = 0; k < curves.values[i].size(); ++k)
                points.emplace_back(left + static_cast<double>(k) * curves.step * plotWidth / 350,
                                    top + (1 - curves.values[i][k]) * plotHeight);
            painter.drawPolyline(points.data(), static_cast<int>(points.size()));
        }
    });
}

// ------------------------------------------------------------------ spots

struct Spots {
    std::vector<QPointF> places;
    Source source;
    TestSupport::FakeWindowHost host;
    Utilities::SmartPointer<GUI::GUIElement> chart;

    explicit Spots(int count) {
        std::mt19937 random(7);
        std::normal_distribution<double> normal(0, 30);
        source.values["Chart"]["NrOfPatches"] = static_cast<long>(count);
        for (long i = 0; i < count; ++i) {
            double const x = std::clamp(normal(random), -99.0, 99.0);
            double const y = std::clamp(normal(random), -99.0, 99.0);
            places.emplace_back(x, y);
            GUI::AttributeMap data{5};
            data["Color"] = VectorOf(i).GetAnything();
            data["XValue"] = x;
            data["YValue"] = y;
            GUI::AttributeMap patch{1};
            patch["Data"] = data;
            source.values[String("Patch") + String(i)] = patch;
        }
        chart = host.Create(Node({{"GUIElementType", "XYColorChart"},
                                  {"ElementName", "Chart"},
                                  {"BackgroundColor", "255,255,255"}}),
                            &source);
        chart->SetSize(imageWidth, imageHeight);
        chart->OnUpdate({});
    }
    void Paint(QImage& image) const {
        PlatformIndependentDeviceContext_PC context(image);
        dynamic_cast<GUI::Pane&>(*chart).OnPaint(context);
    }
    /// Every spot, hidden or not.
    QImage Expected() const {
        QImage image = Blank();
        PlatformIndependentDeviceContext_PC context(image);
        dynamic_cast<GUI::Pane&>(*chart).Pane::OnPaint(context);
        context.SetPen(RGBVector(50, 50, 50), 1, 0);
        for (std::size_t i = 0; i < places.size(); ++i) {
            auto const x = static_cast<short>(imageWidth / 2.0 + places[i].x() * imageWidth / 200);
            auto const y = static_cast<short>(imageHeight / 2.0 - places[i].y() * imageHeight / 200);
            context.SetBrush(VectorOf(static_cast<long>(i)));
            context.FillEllipse(static_cast<short>(x - 4), static_cast<short>(y - 4),
                                static_cast<short>(x + 4), static_cast<short>(y + 4));
        }
        return image;
    }
};

void OurSpots(benchmark::State& state, Spots const& spots) {
    Run(state, [&](QImage& image) { spots.Paint(image); });
    QImage image = Blank();
    spots.Paint(image);
    if (image != spots.Expected() || image == Blank()) state.SkipWithError("not the picture of all spots");
}

void Ellipses(benchmark::State& state, Spots const& spots) {
    Run(state, [&](QImage& image) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setClipRect(left, top, plotWidth, plotHeight);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(200, 60, 60));
        for (QPointF const& place : spots.places)
            painter.drawEllipse(QPointF(left + (place.x() + 100) * plotWidth / 200,
                                        top + (100 - place.y()) * plotHeight / 200),
                                4, 4);
    });
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication const application(argc, argv);
    benchmark::Initialize(&argc, argv);
    auto const add = [](std::string const& name, auto function, auto const& data) {
        benchmark::RegisterBenchmark(name.c_str(), [function, &data](benchmark::State& state) {
            function(state, data);
        })->Unit(benchmark::kMillisecond);
    };
    Curves const many(100, 36);
    add("chart.curves-100x36/ours", OurCurves, many);
    add("chart.curves-100x36/floor:drawPolyline", Polylines, many);
    Curves const one(1, 100000);
    add("chart.curve-100000/ours", OurCurves, one);
    add("chart.curve-100000/floor:drawPolyline", Polylines, one);
    Spots const few(1000);
    add("chart.spots-1000/ours", OurSpots, few);
    add("chart.spots-1000/floor:drawEllipse", Ellipses, few);
    Spots const lots(100000);
    add("chart.spots-100000/ours", OurSpots, lots);
    add("chart.spots-100000/floor:drawEllipse", Ellipses, lots);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
