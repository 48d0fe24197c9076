// A report of 100 readings, each with a chart of its curve, and all in a table, written to a PDF.
#include "bench/DescribedWindow.h"
#include "gui/elements/application/ReportService.h"

#include <cmath>
#include <unistd.h>

namespace {

using Bench::Anything;
using Bench::String;

constexpr int readings = 100;
constexpr int bands = 36;

/// The same curve for every chart; each cell is another number.
class Source : public Bench::Source {
public:
    Anything GetValue(String const& element, String const& name) override {
        if (name.FindSubstring("Row ", 0) != 0) return Bench::Source::GetValue(element, name);
        Anything::VectorOfAnythings row(5);
        row[0] = name;
        double const number = static_cast<double>(name.Mid(4, name.Length()).GetLong());
        for (std::uint32_t i = 1; i < 5; ++i) row[i] = 30 * std::sin(number * i);
        return row;
    }
};

std::string Describe() {
    std::string text = "<Report ElementName='R'><PageFooter Right='%1 / %2'/>";
    for (int i = 0; i < readings; ++i)
        text += "<Heading Caption='Reading'/><Drawing Height='200'><XYChart ElementName='Chart' "
                "NumbersAtLines='Yes' "
                "XScaleDrawLines='50' YScaleDrawLines='0.2'/></Drawing>";
    text += "<ReportTable ElementName='T'><ReportColumn Caption='Name'/>";
    for (char const* const caption : {"L*", "a*", "b*", "C*"})
        text += std::string("<ReportColumn Caption='") + caption + "' NumberFormat='Lab'/>";
    return text + "</ReportTable></Report>";
}

void Readings(benchmark::State& state) {
    Source source;
    Anything::VectorOfAnythings curve(bands + 1);
    curve[0] = "Curve";
    for (int i = 0; i < bands; ++i) curve[static_cast<std::uint32_t>(i) + 1] = 0.5 + 0.4 * std::sin(i / 5.0);
    source.values = {{"1", curve},           {"UpdateMessage", "1;1-36;1"}, {"RowCount", long{readings}},
                     {"XScaleBegin", 380.0}, {"XScaleEnd", 730.0},          {"YScaleBegin", 0.0},
                     {"YScaleEnd", 1.0},     {"ValueBegin", "380"},         {"ValueStep", "10"}};
    auto const description = GUI::GUIDescriptionReader::Parse(Describe(), "bench");
    auto const service = Utilities::ResolveComponent<GUI::ReportService>("ReportService");
    std::string const file = "/tmp/bench-report-" + std::to_string(getpid()) + ".pdf";
    for (auto _ : state)
        // Four charts a page, and the table.
        if (service->SavePdf(description, &source, file) < readings / 4)
            state.SkipWithError("pages are missing");
    std::remove(file.c_str());
}

} // namespace

int main(int argc, char** argv) {
    Bench::Application application;
    application.SetOffscreen(true);
    application.GetImplementation();
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("report.readings-100/ours", Readings)->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
