// A few pictures, named by state, for what only pixels show. NORVELIAN_WRITE_GOLDENS=1 writes them again;
// look at them before committing. No text is drawn: fonts differ between machines.
#include "Utilities/NamingService.h"
#include "gui/elements/DialogHandler.h"
#include "gui/elements/DropDataObject.h"
#include "gui/elements/Pane.h"
#include "gui/elements/drawing/ImageServiceInterface.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "tests/support/FakeDataSource.h"

#include <QApplication>
#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <utility>
#include <vector>

namespace {

using GUI::RGBVector;
using TestSupport::FakeDataSource;
using Utilities::Anything;

struct Golden {
    char const* state;
    char const* component;
    int width;
    int height;
    std::vector<std::pair<char const*, char const*>> attributes;
    std::function<void(FakeDataSource&)> data;
    /// The update message, none if empty.
    char const* message = "";
    /// What happens to it before it is painted.
    std::function<void(GUI::Pane&)> act = {};
    /// Where something is dragged over it, after a first paint.
    std::optional<std::pair<long, long>> drag = {};
};

/// A data source that takes every drag.
struct DropTarget : GUI::DialogHandler {
    FakeDataSource values;

    Anything GetValue(Utilities::String const& element, Utilities::String const& name) override {
        return values.GetValue(element, name);
    }
    GUI::DropEffect OnDragOver(GUI::PlatformIndependentWindowID const&, GUI::DropDataObject const&,
                               GUI::KeyState const&, long, long) override {
        return GUI::DropEffect::Copy;
    }
};
struct NoData : GUI::DropDataObject {
    bool HasFormat(Utilities::String const&) const override { return false; }
    Anything GetData(Utilities::String const&) const override { return {}; }
};

Anything Column(std::string const& name, double base, double height, double centre) {
    Anything::VectorOfAnythings column(37);
    column[0] = name.c_str();
    for (std::uint32_t i = 0; i < 36; ++i)
        column[i + 1] = Utilities::String(base + height * std::exp(-std::pow((i - centre) / 5.0, 2)), 4, '.');
    return {column};
}

void Curves(FakeDataSource& source) {
    source.values[{"E", "XScaleBegin"}] = 380.0;
    source.values[{"E", "XScaleEnd"}] = 730.0;
    source.values[{"E", "YScaleBegin"}] = 0.0;
    source.values[{"E", "YScaleEnd"}] = 1.0;
    source.values[{"E", "ValueBegin"}] = "380";
    source.values[{"E", "ValueStep"}] = "10";
    source.values[{"E", "XScaleDrawLines"}] = 50.0;
    source.values[{"E", "YScaleDrawLines"}] = 0.2;
    Anything::VectorOfAnythings names(3);
    for (Anything& name : names) name = "c";
    source.values[{"E", ""}] = Anything(names);
    for (int i = 0; i < 3; ++i)
        source.values[{"E", std::to_string(i + 1)}] = Column("c", 0.1 + 0.1 * i, 0.6 - 0.1 * i, 8.0 + 9 * i);
    source.values[{"E", "CurveColor 0"}] = "0;80;160";
    source.values[{"E", "CurveColor 1"}] = "0;140;60";
    source.values[{"E", "CurveColor 2"}] = "190;40;30";
    source.values[{"E", "ActiveCurve"}] = short{1};
    source.values[{"E", "LineWidth 1"}] = 3L;
}

void Spots(FakeDataSource& source) {
    source.values[{"E", "NrOfPatches"}] = 12L;
    for (int i = 0; i < 12; ++i) {
        Anything::MapOfAnythings spot;
        double const angle = i * 0.5236;
        spot["Color"] = RGBVector(static_cast<unsigned char>(128 + 100 * std::cos(angle)),
                                  static_cast<unsigned char>(128 + 100 * std::sin(angle)), 120)
                            .GetAnything();
        spot["XValue"] = 80 * std::cos(angle);
        spot["YValue"] = 80 * std::sin(angle);
        source.values[{"Patch" + std::to_string(i), "Data"}] = Anything(spot);
    }
    source.values[{"E", "SelectedSample"}] = 4L;
}

void Bars(FakeDataSource& source) {
    source.values[{"E", "XScaleBegin"}] = 0.0;
    source.values[{"E", "XScaleEnd"}] = 80.0;
    source.values[{"E", "YScaleBegin"}] = -10.0;
    source.values[{"E", "YScaleEnd"}] = 10.0;
    source.values[{"E", "ValueBegin"}] = "5";
    source.values[{"E", "ValueStep"}] = "10";
    source.values[{"E", "BarWidth"}] = "6";
    Anything::VectorOfAnythings column(9);
    column[0] = "Differences";
    char const* const values[] = {"3", "-4.5", "7", nullptr, "12", "-30", "0", "5"};
    for (std::uint32_t i = 0; i < 8; ++i)
        if (values[i]) column[i + 1] = values[i];
    source.values[{"E", "1"}] = Anything(column);
}

void Harmony(FakeDataSource& source) {
    source.values[{"E", "NumberOfSlices"}] = short{8};
    for (int slice :
         {0, 1, 2, 3, 4, 5, 6, 7, 10, 11, 12, 100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111}) {
        double const angle = slice < 10 ? slice * 0.785 : slice * 0.5236;
        RGBVector color(static_cast<unsigned char>(128 + 100 * std::cos(angle)),
                        static_cast<unsigned char>(128 + 100 * std::sin(angle)),
                        static_cast<unsigned char>(110 + slice));
        color.SetInGamut(slice % 5 != 1);
        source.values[{"E", "Color of Slice " + std::to_string(slice)}] = color.GetAnything();
    }
}

std::function<void(FakeDataSource&)> HarmonyWith(short selected) {
    return [selected](FakeDataSource& source) {
        Harmony(source);
        source.values[{"E", "SelectedSlice"}] = selected;
    };
}

void Select(GUI::Pane& pane) { pane.Select({}); }

std::vector<Golden> Goldens() {
    auto const color = [](unsigned char r, unsigned char g, unsigned char b, bool active) {
        return [=](FakeDataSource& source) {
            source.values[{"E", "ColorValue"}] = RGBVector(r, g, b).GetAnything();
            source.values[{"E", "IsActive"}] = active;
        };
    };
    return {
        {"circle-patch-active-light", "CirclePatch", 60, 40, {}, color(200, 180, 90, true)},
        {"circle-patch-active-dark", "CirclePatch", 40, 60, {}, color(40, 60, 90, true)},
        {"small-patch-framed-active", "SmallPatch", 40, 30, {{"Frame", "Yes"}}, color(20, 120, 60, true)},
        {"square-patch-corners",
         "SquarePatch",
         40,
         30,
         {{"Frame", "Yes"}, {"BackgroundColor", "90,90,200"}},
         {}},
        {"bar-graph-torn-missing",
         "BarGraph",
         240,
         150,
         {{"Color", "0,90,160"}, {"ShowLimit", "Yes"}, {"ThickLineGraduation", "4"}, {"Frame", "No"}},
         Bars,
         "1;1-8;1"},
        {"bar-graph-level",
         "BarGraph",
         150,
         240,
         {{"JustificationOnX", "No"}, {"Color", "160,60,0"}, {"BackgroundColor", "250,250,250"}},
         Bars,
         "1;1-8;1"},
        {"circle-patch-marked-outside",
         "CirclePatch",
         60,
         40,
         {{"MarkOutside", "Yes"}, {"SurroundColor", "198,198,198"}},
         color(200, 180, 90, true)},
        {"xy-graph-active-curve",
         "XYGraph",
         240,
         150,
         {{"LineColor", "150,150,150"}, {"XScaleDrawLines", "50"}, {"YScaleDrawLines", "0.2"}},
         Curves,
         "1;1-36;3"},
        {"xy-color-chart-selected",
         "XYColorChart",
         160,
         160,
         {{"SpotSize", "7"}, {"BackgroundColor", "225,225,225"}, {"Frame", "Yes"}},
         Spots,
         "data"},
        {"xy-color-chart-marked-outside",
         "XYColorChart",
         160,
         160,
         {{"SpotSize", "5"}, {"BackgroundColor", "198,198,198"}, {"MarkOutside", "Yes"}},
         Spots,
         "data"},
        {"color-wheel-selected", "ColorWheel", 200, 180, {}, HarmonyWith(5), "data", Select},
        {"color-wheel-smooth",
         "ColorWheel",
         180,
         180,
         {{"Smooth", "Yes"}, {"BaseAngle", "15"}},
         HarmonyWith(3),
         "data",
         Select},
        {"sky-slice-selected",
         "PalimarSky",
         240,
         240,
         {{"OuterRadius", "115"}, {"InnerRadius", "70"}},
         HarmonyWith(104),
         "data",
         Select},
        {"sky-triangle-selected",
         "PalimarSky",
         240,
         240,
         {{"OuterRadius", "115"}, {"InnerRadius", "80"}},
         HarmonyWith(11),
         "data",
         Select},
        {"sky-kite-selected",
         "PalimarSky",
         240,
         240,
         {{"OuterRadius", "115"}, {"InnerRadius", "90"}, {"Smooth", "Yes"}},
         HarmonyWith(2),
         "data",
         Select},
        {"color-wheel-dragged-over", "ColorWheel", 180, 180, {}, Harmony, "data", {}, std::pair(130L, 60L)},
        {"color-wheel-insert-between",
         "ColorWheel",
         180,
         180,
         {{"Smooth", "Yes"}},
         [](FakeDataSource& source) {
             Harmony(source);
             source.values[{"E", "MaxNumberOfSlices"}] = 12L;
         },
         "data",
         {},
         std::pair(130L, 60L)},
        {"sky-dragged-over",
         "PalimarSky",
         240,
         240,
         {{"OuterRadius", "115"}, {"InnerRadius", "90"}},
         Harmony,
         "data",
         {},
         std::pair(120L, 100L)},
    };
}

/// Pictures are those of the program.
void TakeImages() {
    auto const images = Utilities::ResolveComponent<GUI::ImageServiceInterface>("ImageService");
    auto const bitmap = Utilities::ResolveComponent<GUI::Bitmap>("Bitmap");
    ASSERT_TRUE(bitmap->Load(Utilities::File(IMAGES "/Warnung.png")));
    images->SetBitmap("Warnung", bitmap);
}

/// By parts of that size, or as a whole.
QImage Paint(Golden const& golden, QSize const& partSize = {}) {
    QWidget parent;
    GUI::PlatformIndependentWindowID_PC identity;
    identity.SetWindow(&parent);
    DropTarget source;
    if (golden.data) golden.data(source.values);
    GUI::DescriptionTree node;
    node["ElementName"] = "E";
    for (auto const& [key, value] : golden.attributes) node[key] = value;
    auto const element = Utilities::ResolveComponent<GUI::GUIElement>(golden.component);
    element->Initialize(identity, node, &source);
    element->SetSize(static_cast<unsigned long>(golden.width), static_cast<unsigned long>(golden.height));
    if (*golden.message != '\0') element->OnUpdate(golden.message);
    if (golden.act) golden.act(dynamic_cast<GUI::Pane&>(*element));
    QImage image(golden.width, golden.height, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    auto& pane = dynamic_cast<GUI::Pane&>(*element);
    auto const paint = [&] {
        GUI::PlatformIndependentDeviceContext_PC context(image);
        pane.OnPaint(context);
    };
    if (!partSize.isEmpty()) {
        for (int y = 0; y < golden.height; y += partSize.height())
            for (int x = 0; x < golden.width; x += partSize.width()) {
                GUI::PlatformIndependentDeviceContext_PC context(
                    image, {QPoint(), QRect(QPoint(x, y), partSize)}, {&image, QPoint()});
                pane.OnPaint(context);
            }
        return image;
    }
    paint();
    if (golden.drag) {
        pane.OnDragOver(NoData(), GUI::KeyState(), golden.drag->first, golden.drag->second);
        paint();
    }
    return image;
}

} // namespace

TEST(GoldenPictures, AreWhatIsDrawn) {
    TakeImages();
    bool const write = std::getenv("NORVELIAN_WRITE_GOLDENS") != nullptr;
    for (Golden const& golden : Goldens()) {
        QString const file = QString(GOLDENS) + "/" + golden.state + ".png";
        QImage const drawn = Paint(golden);
        if (write) {
            ASSERT_TRUE(drawn.save(file)) << golden.state;
            continue;
        }
        QImage const expected = QImage(file).convertToFormat(QImage::Format_RGB32);
        ASSERT_FALSE(expected.isNull()) << golden.state << " has no picture";
        if (drawn == expected) continue;
        QString const actual = QString(GOLDENS_ACTUAL) + "/" + golden.state + ".png";
        drawn.save(actual);
        ADD_FAILURE() << golden.state << " is drawn otherwise: " << actual.toStdString();
    }
}

TEST(GoldenPictures, AreTheSameByParts) {
    TakeImages();
    for (Golden const& golden : Goldens()) {
        if (golden.drag) continue;
        QImage const whole = Paint(golden);
        QImage const parts = Paint(golden, QSize(37, 29));
        // Where a part cuts an edge, what it covers of a pixel is rounded otherwise.
        int farthest = 0;
        for (int y = 0; y < whole.height(); ++y)
            for (int x = 0; x < whole.width(); ++x)
                for (int const shift : {0, 8, 16})
                    farthest =
                        std::max(farthest, std::abs(static_cast<int>(whole.pixel(x, y) >> shift & 255U) -
                                                    static_cast<int>(parts.pixel(x, y) >> shift & 255U)));
        EXPECT_LE(farthest, 1) << golden.state;
    }
}
