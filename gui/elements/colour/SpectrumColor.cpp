#include "gui/elements/colour/SpectrumColor.h"

#include "Diagnostics/Sink.h"
#include "cxf/colorimetry/TristimService.h"

namespace GUI {

using Norvelian::Tristim::NVMeasureConditions;
using Norvelian::Tristim::NVSpectrum;
using Norvelian::Tristim::TristimService;
using Utilities::Anything;
using Utilities::MakeSmart;
using Utilities::String;
namespace Key = Norvelian::Tristim::Vocabulary::Key;

namespace {

constexpr char const* kHeader = "[File]\nApplication=\tNorvelian Ostrinda V0.5\nVersion=\t3\n[Standard]\n"
                                "[SplTol]\nTol=\tdE*\t3.00\n[MeasValue]\nID=\nInfo=\n"
                                "Date=\t05-12-1995\t17:04:13\nM_Cond=\tNo\tAbs\n";
constexpr char const* kRemission = "Remission=";
constexpr long kLines = 12;
constexpr short kDecimals = 5;

NVMeasureConditions Condition(char const* key, String const& value) {
    NVMeasureConditions conditions;
    conditions.SetMeasureCondition(key, value.GetStdString());
    return conditions;
}

String Decimal(float value) { return {static_cast<double>(value), kDecimals, '.'}; }

Anything NumberedValues(char const* key) {
    Anything::MapOfAnythings values;
    unsigned long number = 0;
    for (std::string const& value : TristimService::GetSupportedValues(key))
        if (!value.empty()) values[String(number++)] = String(value);
    return values;
}

} // namespace

SpectrumColor::SpectrumColor() : SpectrumColor(NVSpectrum(std::vector<float>(Norvelian::Tristim::kBands))) {}

SpectrumColor::SpectrumColor(NVSpectrum const& spectrum)
    : colorSpace_("CIELab"), deltaEFormula_("CIELab"), spectrum_(MakeSmart<NVSpectrum>(spectrum)) {}

SpectrumColor::SpectrumColor(SpectrumColor const& other)
    : colorSpace_(other.colorSpace_), deltaEFormula_(other.deltaEFormula_),
      spectrum_(MakeSmart<NVSpectrum>(*other.spectrum_)) {}

SpectrumColor& SpectrumColor::operator=(SpectrumColor const& other) {
    if (this == &other) return *this;
    SetSpectrum(*other.spectrum_);
    colorSpace_ = other.colorSpace_;
    deltaEFormula_ = other.deltaEFormula_;
    return *this;
}

void SpectrumColor::SetSpectrum(NVSpectrum const& spectrum) { spectrum_ = MakeSmart<NVSpectrum>(spectrum); }

bool SpectrumColor::FromString(String const& text) {
    if (text.GetTokenCount('\n') < kLines) return false;
    String const line = text.GetToken(kLines - 1, '\n');
    if (!(line.GetToken(0, '\t') == kRemission)) return false;
    std::vector<float> values;
    for (std::size_t band = 0; band < Norvelian::Tristim::kBands; ++band) {
        String const token = line.GetToken(static_cast<long>(band) + 1, '\t');
        values.push_back(token.Length() ? static_cast<float>(token.GetDouble()) : 0);
    }
    SetSpectrum(NVSpectrum(values));
    return true;
}

String SpectrumColor::ToString() const {
    String text = kHeader;
    text += kRemission;
    for (float const value : spectrum_->GetValues()) {
        text += "\t";
        text += Decimal(value);
    }
    text += "\n";
    return text;
}

RGBVector SpectrumColor::GetRGB() const {
    try {
        auto const vector = TristimService::GetVector(*spectrum_, Condition(Key::ColorSpaceType, "RGB"));
        auto const channel = [&vector](short index) {
            return static_cast<unsigned char>(static_cast<long>(vector.GetElement(index)));
        };
        return {channel(0), channel(1), channel(2)};
    } catch (...) {
        Diagnostics::DropException("SpectrumColor::GetRGB");
        return {};
    }
}

Anything SpectrumColor::GetColorSpaces() { return NumberedValues(Key::ColorSpaceType); }
Anything SpectrumColor::GetDeltaEFormulas() { return NumberedValues(Key::DeltaEFormula); }

float SpectrumColor::GetDeltaE(SpectrumColor const& other) const {
    return TristimService::GetDeltaE(*spectrum_, *other.spectrum_,
                                     Condition(Key::DeltaEFormula, deltaEFormula_), 0, 0, 0);
}

Utilities::Vector<String> SpectrumColor::GetColorValues() const {
    auto const vector = TristimService::GetVector(*spectrum_, Condition(Key::ColorSpaceType, colorSpace_));
    Utilities::Vector<String> values(3);
    for (short i = 0; i < 3; ++i) values[static_cast<std::uint32_t>(i)] = Decimal(vector.GetElement(i));
    return values;
}

Utilities::Vector<String> SpectrumColor::GetColorValueNames() const {
    NVMeasureConditions const conditions = Condition(Key::ColorSpaceType, colorSpace_);
    Utilities::Vector<String> names(3);
    for (short i = 0; i < 3; ++i) names[static_cast<std::uint32_t>(i)] = conditions.GetElementName(i);
    return names;
}

} // namespace GUI
