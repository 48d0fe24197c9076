#include "hosts/colourdesk/SampleReport.h"

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/NamingService.h"
#include "gui/elements/application/ReportService.h"
#include "gui/elements/description/GUIDescriptionReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <initializer_list>
#include <numbers>

namespace ColourDesk {

using Utilities::Anything;
using Utilities::LanguageServiceInterface;
using Utilities::String;

namespace {

constexpr long bands = 36;

std::string Now() {
    std::time_t const now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
    return text.data();
}

Anything List(std::initializer_list<Anything> values) {
    Anything::VectorOfAnythings list(static_cast<std::uint32_t>(values.size()));
    std::uint32_t next = 0;
    for (Anything const& value : values) list[next++] = value;
    return list;
}

} // namespace

SampleReport::SampleReport(SampleWindow& window) : window_(window) {
    auto const& samples = window_.GetDocument().GetSamples();
    bool const isOne = std::all_of(samples.begin(), samples.end(), [&samples](ShownSample const& shown) {
        return shown.condition == samples.front().condition;
    });
    if (isOne && !samples.empty()) condition_ = samples.front().condition;
}

bool SampleReport::Save(std::string const& fileName) {
    auto const service = Utilities::ResolveComponent<GUI::ReportService>("ReportService");
    return service->SavePdf(GUI::GUIDescriptionReader::GetGUIDescriptionTree("Report"), this, fileName) != 0;
}

std::string SampleReport::ProposeFile(std::string const& sampleFile) {
    namespace fs = std::filesystem;
    char const* const home = std::getenv("HOME");
    if (!home || !*home) return {};
    std::error_code failure;
    fs::path directory = fs::path(home) / "Documents";
    if (!fs::is_directory(directory, failure)) directory = home;
    std::string const name = fs::path(sampleFile).stem().string();
    fs::path file = directory / (name + ".pdf");
    for (int i = 2; fs::exists(file, failure); ++i)
        file = directory / (name + " " + std::to_string(i) + ".pdf");
    return file.string();
}

Anything SampleReport::GetFacts() const {
    SampleDocument const& document = window_.GetDocument();
    auto const fact = [](char const* caption, std::string const& text) {
        return List({LanguageServiceInterface::GetTranslation(caption), String(text)});
    };
    Anything const file = fact("File", document.GetFileName());
    Anything const count = fact("Samples", std::to_string(document.GetSamples().size()));
    Anything const written = fact("Written", Now());
    if (condition_.empty()) return List({file, count, written});
    return List({file, count, written, fact("Condition", condition_)});
}

Anything SampleReport::GetRow(std::size_t sample) const {
    ShownSample const& shown = window_.GetDocument().GetSamples()[sample];
    auto const& [lightness, a, b] = shown.lab;
    double const chroma = std::hypot(a, b);
    double const degrees = std::atan2(b, a) * 180 / std::numbers::pi;
    // What has no chroma to speak of has no hue.
    constexpr double neutral = 0.005;
    Anything const hue = chroma < neutral ? Anything() : Anything(degrees < 0 ? degrees + 360 : degrees);
    // Where conditions differ, each row states its own.
    std::string const condition = condition_.empty() ? "\n" + shown.condition : std::string();
    return List({shown.color.GetAnything(), String(shown.name + condition), lightness, a, b, chroma, hue});
}

Anything SampleReport::GetValue(String const& element, String const& name) {
    auto const count = static_cast<long>(window_.GetDocument().GetSamples().size());
    if (element == "ReportFacts") return name == "Facts" ? GetFacts() : Anything();
    if (element == "ReportSamples") return name == "Condition" ? Anything(String(condition_)) : Anything();
    if (element == "ReportFoot") return name == "Centre" ? Anything(String(condition_)) : Anything();
    if (element == "ReportRows") {
        if (name == "RowCount") return count;
        return GetRow(static_cast<std::size_t>(name.Mid(4, name.Length()).GetLong()) - 1);
    }
    if (name == "UpdateMessage") {
        if (element == "ReportSpectra")
            return String("1;1-") + String(bands) + ";" + String(std::min(count, SamplePages::capacity));
        return element == "LabChart" ? Anything("") : Anything();
    }
    // Nothing is selected on paper.
    if (name == "ActiveCurve") return short{-1};
    if (name == "SelectedSample") return -1L;
    if (name.FindSubstring("LineWidth ", 0) == 0) return 1L;
    return element == "XYGraph" || element == "LabChart" || element.FindSubstring("Patch", 0) == 0
               ? window_.GetValue(element, name)
               : Anything();
}

void SampleReport::SetValue(String const& /*element*/, String const& /*name*/, Anything const& /*value*/) {}
void SampleReport::SetCallback(String const& element, String const& name,
                               Utilities::Callback const& callback) {
    callbacks_.Set(element, name, callback);
}
Utilities::Callback SampleReport::GetCallback(String const& element, String const& name) {
    return callbacks_.Find(element, name);
}

} // namespace ColourDesk
