#include "hosts/colourdesk/SampleDocument.h"

#include "core/base/String.h"
#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/ConditionText.h"
#include "gui/elements/drawing/NumberFormat.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace ColourDesk {

namespace Cxf = Norvelian::ColorExchangeFormat;
namespace Tristim = Norvelian::Tristim;

namespace {

/// The condition under which the desk shows its numbers; the vocabulary's terms.
Tristim::NVMeasureConditions LabConditions() {
    namespace Key = Tristim::Vocabulary::Key;
    Tristim::NVMeasureConditions conditions;
    conditions.SetMeasureCondition(Key::Illumination, "D50");
    conditions.SetMeasureCondition(Key::Observer, "TwoDegree");
    conditions.SetMeasureCondition(Key::ColorSpaceType, "CIELab");
    return conditions;
}

/// What the desk opens are reflectances; who inspects a sample must not take them for light.
void StateSpectrumType(Cxf::SampleAttribute& spectrum) {
    namespace Key = Tristim::Vocabulary::Key;
    Cxf::Conditions conditions = spectrum.GetConditions();
    if (!conditions.GetAttribute(Key::SpectrumType, {}).empty()) return;
    conditions.Assume(Key::SpectrumType, "Remission", Tristim::kLibraryDefault);
    spectrum.SetConditions(conditions);
}

} // namespace

SampleDocument SampleDocument::Open(std::string const& path, Tintorium::ScreenRGB const& screen) {
    Cxf::ReadOptions options;
    options.requireSpectra = true;
    options.allowExtrapolation = true;
    SampleDocument document;
    options.report = &document.report_;
    // Saving writes all tables; the first that has spectra is shown.
    document.sets_ = Cxf::ReadSampleSets(path, options);
    auto const hasSpectra = [](Cxf::SampleSetPointer const& each) {
        auto const& samples = each->GetSamples();
        return std::any_of(samples.begin(), samples.end(), [](auto const& sample) {
            return !sample->GetSampleAttribute("CXFSpectrum", {}, false).IsNull();
        });
    };
    auto const found = std::find_if(document.sets_.begin(), document.sets_.end(), hasSpectra);
    Cxf::SampleSetPointer const set = found == document.sets_.end() ? document.sets_.front() : *found;

    document.path_ = path;
    auto const conditions = LabConditions();
    for (auto const& sample : set->GetSamples()) {
        auto const attribute = sample->GetSampleAttribute("CXFSpectrum", {}, false);
        if (attribute.IsNull()) continue;
        StateSpectrumType(*attribute);
        auto const spectrum = Cxf::Extensions::Cxf2NV(*attribute);
        auto const lab = Tristim::TristimService::GetVector(spectrum, conditions);
        ShownSample shown;
        shown.sample = sample;
        shown.name = sample->GetName();
        shown.description = sample->GetDescription();
        shown.spectrum = spectrum.GetValues();
        shown.lab = {lab.GetExact(0), lab.GetExact(1), lab.GetExact(2)};
        shown.condition = ViewingText(lab.GetMeasureConditions());
        std::string const done =
            lab.GetMeasureConditions().GetMeasureCondition(Tristim::Vocabulary::Key::Resampling);
        if (!done.empty()) shown.condition += "; " + done;
        shown.color = screen.GetRGB(spectrum);
        document.samples_.push_back(std::move(shown));
    }
    return document;
}

void SampleDocument::SaveAs(std::string const& path) const {
    Cxf::WriteSampleSets(path, sets_, Cxf::FormatOf(path));
}

bool SampleDocument::TakeTexts(long sample) {
    ShownSample& shown = samples_[static_cast<std::size_t>(sample)];
    bool const isNew =
        shown.name != shown.sample->GetName() || shown.description != shown.sample->GetDescription();
    shown.name = shown.sample->GetName();
    shown.description = shown.sample->GetDescription();
    return isNew;
}

bool SampleDocument::IsWriteProtected() const {
    std::error_code failure;
    auto const rights = std::filesystem::status(path_, failure).permissions();
    constexpr auto anybody = std::filesystem::perms::owner_write | std::filesystem::perms::group_write |
                             std::filesystem::perms::others_write;
    return !failure && (rights & anybody) == std::filesystem::perms::none;
}

std::string SampleDocument::GetFileName() const { return std::filesystem::path(path_).filename().string(); }

std::string SampleDocument::FormatLab(std::array<double, 3> const& lab) {
    auto const number = [](double value) { return GUI::NumberFormat().Write(value).GetStdString(); };
    return "L* " + number(lab[0]) + "   a* " + number(lab[1]) + "   b* " + number(lab[2]);
}

} // namespace ColourDesk
