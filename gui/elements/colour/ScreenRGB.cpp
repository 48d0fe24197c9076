#include "gui/elements/colour/ScreenRGB.h"

namespace Tintorium {

namespace Cxf = Norvelian::ColorExchangeFormat;

namespace {

GUI::RGBVector ToRGB(Cxf::ScreenColour const& colour) {
    GUI::RGBVector result(colour.GetRed(), colour.GetGreen(), colour.GetBlue());
    result.SetInGamut(colour.IsInGamut());
    return result;
}

} // namespace

ScreenRGB::ScreenRGB() : transform_(std::make_shared<Cxf::ScreenTransform const>()) {}
ScreenRGB::ScreenRGB(std::string_view profile)
    : transform_(std::make_shared<Cxf::ScreenTransform const>(profile)) {}

Utilities::Anything ScreenRGB::GetColorValue(Cxf::Sample const& sample) const {
    return GetRGB(sample).GetAnything();
}

GUI::RGBVector ScreenRGB::GetRGB(Cxf::Sample const& sample) const {
    return ToRGB(transform_->Convert(sample));
}

GUI::RGBVector ScreenRGB::GetRGB(Norvelian::Tristim::NVSpectrum const& spectrum) const {
    return ToRGB(transform_->Convert(spectrum));
}

} // namespace Tintorium
