// What once took time by the square of its size, at the size that the limits admit and at half of it: "ours"
// over "floor:half" is 2 for work that grows with the size, and 4 for its square.
#include "Diagnostics/Sink.h"
#include "cxf/files/SampleFile.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "gui/layout/LoopBoxCalculator.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/shell/ShellCommand.h"

#include <QGuiApplication>
#include <QImage>
#include <array>
#include <benchmark/benchmark.h>
#include <functional>
#include <string>

namespace {

namespace Cxf = Norvelian::ColorExchangeFormat;

std::string Repeat(std::string const& text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

/// `make` gives the work for a size; the work says whether its result is right.
struct Case {
    char const* name;
    std::size_t size;
    std::function<std::function<bool()>(std::size_t)> make;
};

std::function<bool()> Formula(std::size_t bytes) {
    std::size_t const steps = bytes / 4;
    std::string const formula = "LOOPBOX_CALC(0" + Repeat(",1,+", steps) + ")";
    return [formula, expected = std::to_string(steps)] {
        Utilities::String value(formula);
        return GUI::EvaluateLoopBoxFormula(value) && value.GetStdString() == expected;
    };
}

std::function<bool()> Attributes(std::size_t count) {
    std::string element = "<HBox";
    for (std::size_t i = 0; i < count; ++i) element += " Attribute" + std::to_string(i) + "='1'";
    return [text = "<VBox>" + Repeat(element + "/>", 20) + "</VBox>"] {
        return GUI::GUIDescriptionReader::Parse(text, "bench").HasChildren();
    };
}

std::function<bool()> Caption(std::size_t bytes) {
    return [text = Utilities::String(std::string(bytes, 'a'))] {
        QImage image(400, 30, QImage::Format_RGB32);
        image.fill(Qt::white);
        GUI::PlatformIndependentDeviceContext_PC context(image);
        context.DrawText(2, 2, text);
        return true;
    };
}

std::function<bool()> Line(std::size_t bytes) {
    std::string const text = "CGATS.17\nREMARK " + Repeat("a ", bytes / 2) +
                             "\nBEGIN_DATA_FORMAT\nNAME\nEND_DATA_FORMAT\nBEGIN_DATA\na\nEND_DATA\n";
    return [text] { return Cxf::ParseSampleSets(text, "bench").size() == 1; };
}

std::function<bool()> Quotes(std::size_t bytes) {
    std::string const text = "CGATS.17\nREMARK \"" + Repeat("\"\"", bytes / 2) +
                             "\"\nBEGIN_DATA_FORMAT\nNAME\nEND_DATA_FORMAT\nBEGIN_DATA\na\nEND_DATA\n";
    return [text] { return Cxf::ParseSampleSets(text, "bench").size() == 1; };
}

std::function<bool()> Commands(std::size_t bytes) {
    return [text = Utilities::String(Repeat("[A", bytes / 2)), bytes] {
        return GUI::ParseShellCommands(text).size() == bytes / 2;
    };
}

void Measure(benchmark::State& state, std::function<bool()> const& work) {
    for (auto _ : state)
        if (!work()) return state.SkipWithError("a wrong result");
}

} // namespace

int main(int count, char** arguments) {
    QGuiApplication const application(count, arguments);
    Diagnostics::SetSink({});
    std::array<Case, 6> const cases{{{"limits.formula-40k", 40'000, Formula},
                                     {"limits.attributes-1000", 1000, Attributes},
                                     {"limits.caption-32k", 32'000, Caption},
                                     {"limits.line-1m", 900'000, Line},
                                     {"limits.quotes-1m", 900'000, Quotes},
                                     {"limits.commands-64k", 65'536, Commands}}};
    for (Case const& each : cases) {
        std::string const name = each.name;
        benchmark::RegisterBenchmark((name + "/ours").c_str(), Measure, each.make(each.size))
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + "/floor:half").c_str(), Measure, each.make(each.size / 2))
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
