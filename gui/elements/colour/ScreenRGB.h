#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "core/base/String.h"
#include "core/component/Component.h"
#include "core/values/Anything.h"
#include "cxf/samples/ScreenTransform.h"
#include "gui/elements/colour/RGBVector.h"

#include <memory>
#include <string_view>

namespace Tintorium {

/// The host's store of shared services, which it registers under the name "Model". The inspector asks it
/// for "ScreenRGB".
class Model : public Utilities::Component {
public:
    /// The component of that name, or null.
    virtual Utilities::SmartPointer<Utilities::Component> GetComponent(Utilities::String const& name) = 0;
};

/// Turns samples into the screen colours of elements: the only way from a measurement to a patch, so that
/// all patches of a screen agree and no colour is converted twice. What it gives is a screen colour, and
/// nothing here takes one.
///
/// Rendering intent, adaptation and the meaning of the in-gamut flag are those of
/// `Norvelian::ColorExchangeFormat::ScreenTransform`.
class ScreenRGB : public Utilities::Component {
public:
    /// For sRGB.
    ScreenRGB();
    /// For the screen that the bytes of an ICC profile describe. Throws
    /// `Norvelian::Tristim::TristimException` for a profile that can't be used; the host falls back to sRGB.
    explicit ScreenRGB(std::string_view profile);

    /// The record of a `GUI::RGBVector`, in-gamut flag included. Throws `TristimException` if the sample has
    /// neither a spectrum nor a colour.
    virtual Utilities::Anything GetColorValue(Norvelian::ColorExchangeFormat::Sample const& sample) const;
    GUI::RGBVector GetRGB(Norvelian::ColorExchangeFormat::Sample const& sample) const;
    GUI::RGBVector GetRGB(Norvelian::Tristim::NVSpectrum const& spectrum) const;

    /// For what needs more than single colours.
    Norvelian::ColorExchangeFormat::ScreenTransform const& GetTransform() const { return *transform_; }

    bool PrepareForUnload() override { return true; }

private:
    /// Shared by copies, which stay on one thread as all components do.
    std::shared_ptr<Norvelian::ColorExchangeFormat::ScreenTransform const> transform_;
};

} // namespace Tintorium
