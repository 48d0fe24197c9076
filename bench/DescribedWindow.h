#pragma once

#include "Utilities/NamingService.h"
#include "gui/elements/DialogDataSource.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "gui/elements/drawing/ImageServiceInterface.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <map>
#include <string>

/// What benchmarks of described windows share.
namespace Bench {

using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;
using Clock = std::chrono::steady_clock;

constexpr int width = 1000;
constexpr int height = 700;

inline double Since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

class Application : public GUI::Application {
public:
    Application() : GUI::Application("bench") {}
    void ReportError(String const& text) override { std::fprintf(stderr, "%s\n", text.GetCharPointer()); }
};

/// Answers for every element alike.
class Source : public GUI::DialogDataSource {
public:
    std::map<std::string, Anything> values;
    std::string told;

    void SetValue(String const&, String const& name, Anything const& value) override {
        if (name == "SelectedEntry") told = value.GetString();
    }
    Anything GetValue(String const&, String const& name) override {
        auto const found = values.find(name.GetStdString());
        return found == values.end() ? Anything() : found->second;
    }
    void SetCallback(String const&, String const&, Utilities::Callback const&) override {}
    Utilities::Callback GetCallback(String const&, String const&) override { return callback; }

    /// Every element's and event's.
    Utilities::Callback callback;
};

inline SmartPointer<GUI::GUIElement> Open(GUI::DescriptionTree const& description, Source& source) {
    auto window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
    window->Initialize(GUI::PlatformIndependentWindowID_PC(), description, &source);
    return window;
}

inline QWidget* WidgetOf(GUI::GUIElement& window) {
    return GUI::PlatformIndependentWindowID_PC::WindowOf(*window.GetWindowID());
}

inline GUI::DescriptionTree Describe(std::string const& inside) {
    return GUI::GUIDescriptionReader::Parse("<Window ElementName='Main' Width='" + std::to_string(width) +
                                                "' Height='" + std::to_string(height) + "'>" + inside +
                                                "</Window>",
                                            "bench");
}

/// A picture of one colour: benchmarks have no pictures of their own.
inline void MakePicture(char const* name, short pictureWidth, short pictureHeight) {
    auto const images = Utilities::ResolveComponent<GUI::ImageServiceInterface>("ImageService");
    auto const picture = Utilities::ResolveComponent<GUI::Bitmap>("Bitmap");
    picture->Create(pictureWidth, pictureHeight);
    auto& context = picture->BeginDraw();
    GUI::RGBVector const color(200, 210, 220);
    context.SetBrush(color);
    context.SetPen(color, 1, GUI::PlatformIndependentDeviceContext::solid);
    context.FillRectangle(0, 0, pictureWidth, pictureHeight);
    picture->EndDraw();
    images->SetBitmap(name, picture);
}

template <class Run> void Register(char const* name, Run run) {
    benchmark::RegisterBenchmark(name, run)->UseManualTime()->Unit(benchmark::kMicrosecond);
}

} // namespace Bench
