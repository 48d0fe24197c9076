// Press panes: a press's table painted into a picture, against as many rectangles by the platform's painter,
// and a list of sheets that is scrolled.
#include "bench/DescribedWindow.h"
#include "gui/elements/Pane.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"

#include <QApplication>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QImage>
#include <QPainter>
#include <random>
#include <string>
#include <vector>

namespace {

using GUI::RGBVector;
using Utilities::Anything;

constexpr int imageWidth = 1280;
constexpr int imageHeight = 720;
constexpr int zones = 32;
constexpr int patches = 300;
constexpr int fields = 500;

template <class Value> Anything Vector(int count, Value value) {
    Anything::VectorOfAnythings values(static_cast<std::uint32_t>(count));
    for (int i = 0; i < count; ++i) values[static_cast<std::uint32_t>(i)] = value(i);
    return values;
}
Anything Longs(std::vector<long> const& values) {
    return Vector(static_cast<int>(values.size()),
                  [&values](int i) { return Anything(values[static_cast<std::size_t>(i)]); });
}
RGBVector ColorOf(int i) {
    auto const channel = [i](int factor) { return static_cast<unsigned char>(i * factor % 256); };
    return {channel(37), channel(59), channel(83)};
}
QImage Blank() { return {imageWidth, imageHeight, QImage::Format_RGB32}; }

/// A pane of that type in a window of its own, and what it asks for.
struct Shown {
    Bench::Source source;
    Utilities::SmartPointer<GUI::GUIElement> window;

    GUI::Pane& Open(std::string const& element, int width, int height) {
        window = Bench::Open(Bench::Describe(element), source);
        auto& pane = dynamic_cast<GUI::Pane&>(window->FindElement("It"));
        pane.SetSize(static_cast<unsigned long>(width), static_cast<unsigned long>(height));
        pane.OnUpdate({});
        return pane;
    }
};

/// The strip at the foot, fields all over the sheet.
struct Press : Shown {
    GUI::Pane* pane;

    explicit Press(int width = imageWidth, int height = imageHeight) {
        source.values["TableSize"] = Longs({imageWidth, imageHeight});
        Anything::MapOfAnythings strip;
        strip["Coordinates"] = Longs({10, 660, 10 + 4 * patches, 666});
        strip["Colors"] = Vector(patches, [](int i) { return ColorOf(i).GetAnything(); });
        Anything::MapOfAnythings strips;
        strips["1"] = strip;
        source.values["MeasureStrip"] = strips;
        Anything::MapOfAnythings all(997);
        std::mt19937 random(5);
        for (int i = 0; i < fields; ++i) {
            Anything::MapOfAnythings field(5);
            field["Index"] = static_cast<long>(i);
            field["Color"] = ColorOf(i).GetAnything();
            field["Coordinates"] =
                Longs({static_cast<long>(random() % 1260) + 10, static_cast<long>(random() % 600) + 10});
            all[std::to_string(i)] = field;
        }
        source.values["InPictureFields"] = all;
        source.values["NumberOfZones"] = static_cast<long>(zones);
        source.values["ToleranceStates"] =
            Vector(zones, [](int i) { return Anything(static_cast<long>(i % 3)); });
        pane = &Open("<TablePicture ElementName='It' Type='2'/>", width, height);
    }
    void Paint(QImage& image) const {
        GUI::PlatformIndependentDeviceContext_PC context(image);
        pane->OnPaint(context);
    }
};

void OurTable(benchmark::State& state) {
    Press const press;
    QImage image = Blank();
    for (auto _ : state) press.Paint(image);
    QRgb const last = image.pixel(10 + 4 * (patches - 1), 654);
    RGBVector const expected = ColorOf(patches - 1);
    if (qRed(last) != expected.GetRed() || qGreen(last) != expected.GetGreen())
        state.SkipWithError("the strip isn't all there");
    if (image.pixel(20, imageHeight - 8) != qRgb(20, 178, 109)) state.SkipWithError("no tolerance boxes");
}

/// The ground, patches, fields, zones and their lines, each in a colour of its own.
void Rectangles(benchmark::State& state) {
    QImage image = Blank();
    for (auto _ : state) {
        QPainter painter(&image);
        auto const draw = [&painter](int x, int y, int width, int height, int color) {
            RGBVector const rgb = ColorOf(color);
            painter.fillRect(x, y, width, height, QColor(rgb.GetRed(), rgb.GetGreen(), rgb.GetBlue()));
        };
        draw(0, 0, imageWidth, imageHeight, 9);
        for (int i = 0; i < patches; ++i) draw(8 + 4 * i, 658, 6, 6, i);
        for (int i = 0; i < fields; ++i) draw(i * 7919 % 1260, i * 104729 % 600, 4, 4, i);
        for (int i = 0; i < zones; ++i) draw(i * 40, 0, 2, imageHeight - 6, 3);
        for (int i = 0; i < zones; ++i) draw(i * 40 + 2, imageHeight - 11, 36, 8, i);
    }
}

/// One zone's state is another, until its box shows it.
void OurZone(benchmark::State& state) {
    Press press(900, 600);
    auto& surface = *Bench::WidgetOf(*press.window);
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    long zone = 0;
    for (auto _ : state) {
        ++zone;
        press.source.values["ToleranceStates"] =
            Vector(zones, [zone](int i) { return Anything(i == 5 ? zone % 3 : 0L); });
        press.pane->OnUpdate("ToleranceStates");
    }
    QColor const expected[] = {QColor(20, 178, 109), QColor(255, 249, 164), QColor(233, 0, 41)};
    QColor const shown = surface.grab().toImage().pixelColor(900 * 11 / 64, 592);
    if (shown != expected[zone % 3]) state.SkipWithError("the box doesn't show its state");
}

/// The same with an item for each rectangle of the picture.
void SceneZone(benchmark::State& state) {
    QGraphicsScene scene(0, 0, 900, 600);
    for (int i = 0; i < patches; ++i) scene.addRect(3 * i, 550, 3, 6, Qt::NoPen, Qt::blue);
    for (int i = 0; i < fields; ++i)
        scene.addRect(i * 7919 % 890, i * 104729 % 540, 4, 4, Qt::NoPen, Qt::red);
    std::vector<QGraphicsRectItem*> boxes;
    for (int i = 0; i < zones; ++i) boxes.push_back(scene.addRect(i * 28, 588, 24, 8, Qt::NoPen, Qt::green));
    QGraphicsView view(&scene);
    view.resize(910, 610);
    view.show();
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    int turn = 0;
    for (auto _ : state) {
        boxes[5]->setBrush(QColor(20, 178, ++turn % 256));
        QApplication::processEvents();
    }
}

// ------------------------------------------------------------------ sheets

constexpr int headerWidth = 200;
constexpr int headerHeight = 600;
constexpr char const* header = "<TrendGraphicHeader ElementName='It' ItemHeight='20'/>";

struct Sheets : Shown {
    GUI::Pane* pane;

    explicit Sheets(int count) {
        source.values["Values"] = Vector(count, [](int i) {
            return Anything(Bench::String((i % 7 == 0 ? " " : "") + std::to_string(10 + i % 13) + ":" +
                                          std::to_string(10 + i % 50)));
        });
        pane = &Open(header, headerWidth, headerHeight);
    }
    void Scroll(long first) {
        source.values["Range"] = Bench::String(std::to_string(first) + "-" + std::to_string(first + 29));
        pane->OnUpdate("Properties|NoRepaint");
    }
};

/// 30 000 of them, scrolled by one and painted.
void OurSheets(benchmark::State& state) {
    Sheets sheets(30000);
    QImage image(headerWidth, headerHeight, QImage::Format_RGB32);
    long first = 0;
    for (auto _ : state) {
        first = first % 29000 + 1;
        sheets.Scroll(first);
        GUI::PlatformIndependentDeviceContext_PC context(image);
        sheets.pane->OnPaint(context);
    }
    QImage scrolled = image;
    sheets.Scroll(first % 29000 + 1);
    GUI::PlatformIndependentDeviceContext_PC context(image);
    sheets.pane->OnPaint(context);
    if (image == scrolled) state.SkipWithError("nothing was scrolled");
}

/// The same lines, of as many sheets as can be seen.
void VisibleSheets(benchmark::State& state) {
    Sheets sheets(30);
    QImage image(headerWidth, headerHeight, QImage::Format_RGB32);
    for (auto _ : state) {
        GUI::PlatformIndependentDeviceContext_PC context(image);
        sheets.pane->OnPaint(context);
    }
}

} // namespace

int main(int argc, char** argv) {
    Bench::Application application;
    application.SetOffscreen(true);
    application.GetImplementation();
    benchmark::Initialize(&argc, argv);
    auto const us = benchmark::kMicrosecond;
    benchmark::RegisterBenchmark("press.table/ours", OurTable)->Unit(us);
    benchmark::RegisterBenchmark("press.table/floor:QPainter.fillRect", Rectangles)->Unit(us);
    benchmark::RegisterBenchmark("press.zone/ours", OurZone)->Unit(us);
    benchmark::RegisterBenchmark("press.zone/peer:QGraphicsScene", SceneZone)->Unit(us);
    benchmark::RegisterBenchmark("press.sheets-30000/ours", OurSheets)->Unit(us);
    benchmark::RegisterBenchmark("press.sheets-30000/floor:visible-lines", VisibleSheets)->Unit(us);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
