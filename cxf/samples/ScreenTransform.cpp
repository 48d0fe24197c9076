#include "cxf/samples/ScreenTransform.h"

#include "cxf/colorimetry/Adaptation.h"
#include "cxf/colorimetry/Resolved.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/samples/Sample.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <lcms2.h>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

using Tristim::TristimException;
using Tristim::XYZ;

namespace {

/// The profile connection space of the library, in which L*a*b* goes to the profile.
XYZ const kPcsWhite{cmsD50X * 100, cmsD50Y * 100, cmsD50Z * 100};

/// No number counts as none of the channel.
double Clipped(double channel) { return channel > 0 ? std::min(channel, 1.0) : 0; }

struct CloseContext {
    void operator()(cmsContext context) const { cmsDeleteContext(context); }
};
struct CloseProfile {
    void operator()(cmsHPROFILE profile) const { cmsCloseProfile(profile); }
};
struct DeleteTransform {
    void operator()(cmsHTRANSFORM transform) const { cmsDeleteTransform(transform); }
};
using Context = std::unique_ptr<std::remove_pointer_t<cmsContext>, CloseContext>;
using Profile = std::unique_ptr<void, CloseProfile>;
using Transform = std::unique_ptr<void, DeleteTransform>;

} // namespace

struct ScreenTransform::Implementation {
    // Each transform has a context of its own, so that threads share nothing.
    Context context{cmsCreateContext(nullptr, nullptr)};
    std::string name;
    Transform toDevice;
    Transform toLab;

    void Open(Profile const& screen, Intent intent) {
        if (!screen || cmsGetColorSpace(screen.get()) != cmsSigRgbData)
            throw TristimException("the screen's profile is no ICC profile of an RGB device");
        std::array<char, 256> text{};
        cmsGetProfileInfoASCII(screen.get(), cmsInfoDescription, "en", "US", text.data(), text.size());
        name = text.data();
        Profile const lab(cmsCreateLab4ProfileTHR(context.get(), nullptr));
        auto const lcmsIntent = static_cast<cmsUInt32Number>(intent == Intent::RelativeColorimetric
                                                                 ? INTENT_RELATIVE_COLORIMETRIC
                                                                 : INTENT_ABSOLUTE_COLORIMETRIC);
        toDevice.reset(cmsCreateTransformTHR(context.get(), lab.get(), TYPE_Lab_DBL, screen.get(),
                                             TYPE_RGB_DBL, lcmsIntent, cmsFLAGS_NOOPTIMIZE));
        toLab.reset(cmsCreateTransformTHR(context.get(), screen.get(), TYPE_RGB_DBL, lab.get(), TYPE_Lab_DBL,
                                          lcmsIntent, cmsFLAGS_NOOPTIMIZE));
        if (!toDevice || !toLab) throw TristimException("the screen's profile can't be converted to");
    }
};

ScreenTransform::ScreenTransform() : implementation_(std::make_unique<Implementation>()) {
    Profile const screen(cmsCreate_sRGBProfileTHR(implementation_->context.get()));
    implementation_->Open(screen, Intent::RelativeColorimetric);
}

ScreenTransform::ScreenTransform(std::string_view profile, Intent intent)
    : implementation_(std::make_unique<Implementation>()) {
    // Little CMS counts in 32 bits; no display profile is near this.
    if (profile.size() > 0x7fffffff) throw TristimException("the screen's profile is too large");
    Profile const screen(cmsOpenProfileFromMemTHR(implementation_->context.get(), profile.data(),
                                                  static_cast<cmsUInt32Number>(profile.size())));
    implementation_->Open(screen, intent);
}

ScreenTransform::ScreenTransform(ScreenTransform&&) noexcept = default;
ScreenTransform& ScreenTransform::operator=(ScreenTransform&&) noexcept = default;
ScreenTransform::~ScreenTransform() = default;

std::string const& ScreenTransform::GetProfileName() const { return implementation_->name; }

void ScreenTransform::Evaluate(std::span<double const> lab, std::span<Shown> shown) const {
    if (lab.size() != shown.size() * 3)
        throw TristimException("arrays don't fit: " + std::to_string(lab.size()) + " values of L*a*b* for " +
                               std::to_string(shown.size()) + " colours");
    constexpr std::size_t block = 256;
    std::array<double, 3 * block> rgb{};
    std::array<double, 3 * block> back{};
    for (std::size_t done = 0; done < shown.size(); done += block) {
        std::size_t const count = std::min(block, shown.size() - done);
        double const* const wanted = lab.data() + 3 * done;
        auto const pixels = static_cast<cmsUInt32Number>(count);
        cmsDoTransform(implementation_->toDevice.get(), wanted, rgb.data(), pixels);
        for (std::size_t i = 0; i < count; ++i)
            std::copy_n(rgb.begin() + static_cast<std::ptrdiff_t>(3 * i), 3, shown[done + i].rgb.begin());
        // A screen clips; the way back through the clipped values tells what it will show.
        std::transform(rgb.begin(), rgb.begin() + static_cast<std::ptrdiff_t>(3 * count), rgb.begin(),
                       Clipped);
        cmsDoTransform(implementation_->toLab.get(), rgb.data(), back.data(), pixels);
        for (std::size_t i = 0; i < count; ++i) {
            Shown& result = shown[done + i];
            result.difference = std::hypot(wanted[3 * i] - back[3 * i], wanted[3 * i + 1] - back[3 * i + 1],
                                           wanted[3 * i + 2] - back[3 * i + 2]);
        }
    }
}

void ScreenTransform::Convert(std::span<double const> lab, std::span<ScreenColour> colours) const {
    std::vector<Shown> shown(colours.size());
    Evaluate(lab, shown);
    for (std::size_t i = 0; i < shown.size(); ++i) {
        auto const device = [&shown, i](std::size_t channel) {
            return static_cast<std::uint8_t>(std::lround(255 * Clipped(shown[i].rgb[channel])));
        };
        colours[i].red_ = device(0);
        colours[i].green_ = device(1);
        colours[i].blue_ = device(2);
        colours[i].inGamut_ = shown[i].difference <= gamutTolerance;
    }
}

ScreenColour ScreenTransform::Convert(XYZ const& colour, XYZ const& white) const {
    XYZ const adapted = Tristim::Bradford(white, kPcsWhite) * colour;
    Tristim::Lab const lab = Tristim::LabOf(adapted, kPcsWhite);
    std::array<double, 3> const values{lab.l, lab.a, lab.b};
    ScreenColour result;
    Convert(values, {&result, 1});
    return result;
}

ScreenColour ScreenTransform::Convert(Tristim::NVSpectrum const& spectrum) const {
    Tristim::Resolved const resolved = Tristim::Resolve({}, spectrum.GetMeasureConditions());
    return Convert(resolved.Reduce(spectrum), resolved.weights->white);
}

ScreenColour ScreenTransform::Convert(Sample const& sample) const {
    using namespace Tristim::Vocabulary;
    auto const spectrum = sample.GetSampleAttribute(Format::Spectrum, {}, false);
    if (!spectrum.IsNull()) return Convert(Extensions::Cxf2NV(*spectrum));
    for (auto const& attribute : sample.GetSampleAttributes()) {
        auto const* const colour = dynamic_cast<ColorVector const*>(attribute.Get());
        if (!colour || colour->GetConditions().GetAttribute(Key::Illumination, "").empty()) continue;
        Tristim::NVColorVector const& vector = colour->GetVector();
        Tristim::Resolved const resolved = Tristim::Resolve(vector.GetMeasureConditions());
        if (resolved.delta) continue;
        Tristim::Elements4 elements{};
        std::copy(vector.GetExactValues().begin(), vector.GetExactValues().end(), elements.begin());
        return Convert(Tristim::ToXYZ(resolved.space, elements, resolved.ReferenceOf()),
                       resolved.weights->white);
    }
    throw TristimException("sample \"" + sample.GetName() + "\" has neither a spectrum nor a colour");
}

} // namespace Norvelian::ColorExchangeFormat
