// Press panes: a press's table painted into a picture, against as many rectangles by the platform's painter.
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

using GUI::RGBVector;
using TestSupport::Node;
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

/// A sheet of 1020 by 720 units with the strip at its foot.
struct Press {
    TestSupport::FakeDataSource source;
    TestSupport::FakeWindowHost host;
    Utilities::SmartPointer<GUI::GUIElement> table;

    explicit Press(char const* type) {
        auto& values = source.values;
        values[{"Table", "TableSize"}] = Longs({1280, 720});
        Anything::MapOfAnythings strip;
        strip["Coordinates"] = Longs({10, 660, 10 + 4 * patches, 666});
        strip["Colors"] = Vector(patches, [](int i) { return ColorOf(i).GetAnything(); });
        Anything::MapOfAnythings strips;
        strips["1"] = strip;
        values[{"Table", "MeasureStrip"}] = strips;
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
        values[{"Table", "InPictureFields"}] = all;
        values[{"Table", "NumberOfZones"}] = static_cast<long>(zones);
        values[{"Table", "ToleranceStates"}] =
            Vector(zones, [](int i) { return Anything(static_cast<long>(i % 3)); });
        table = host.Create(
            Node({{"GUIElementType", "TablePicture"}, {"ElementName", "Table"}, {"Type", type}}), &source);
        table->SetSize(imageWidth, imageHeight);
        table->OnUpdate({});
    }
    void Paint(QImage& image) const {
        GUI::PlatformIndependentDeviceContext_PC context(image);
        dynamic_cast<GUI::Pane&>(*table).OnPaint(context);
    }
};

void OurTable(benchmark::State& state) {
    Press const press("2");
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

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication const application(argc, argv);
    benchmark::Initialize(&argc, argv);
    auto const us = benchmark::kMicrosecond;
    benchmark::RegisterBenchmark("press.table/ours", OurTable)->Unit(us);
    benchmark::RegisterBenchmark("press.table/floor:QPainter.fillRect", Rectangles)->Unit(us);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
