#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "Utilities/Tools/Vector.h"
#include "core/base/String.h"
#include "core/values/Anything.h"
#include "cxf/conditions/NVSpectrum.h"
#include "gui/elements/colour/RGBVector.h"

namespace GUI {

/// A spectrum as a value, together with the colour space and the difference formula in which it is looked
/// at, and with a text form for exchange. Computations use the default conditions of the colour library (D50,
/// 2 degrees, absolute); its exceptions pass, but for `GetRGB`.
class SpectrumColor {
public:
    /// 36 values of zero, colour space and formula "CIELab".
    SpectrumColor();
    explicit SpectrumColor(Norvelian::Tristim::NVSpectrum const& spectrum);
    /// Copies share nothing.
    SpectrumColor(SpectrumColor const& other);
    SpectrumColor& operator=(SpectrumColor const& other);
    ~SpectrumColor() = default;

    void SetSpectrum(Norvelian::Tristim::NVSpectrum const& spectrum);
    Norvelian::Tristim::NVSpectrum const& GetSpectrum() const { return *spectrum_; }

    /// Reads the form that `ToString` writes. Only the twelfth line counts: "Remission=", then values behind
    /// tabs; missing ones are zero. A text of fewer lines or with another twelfth line changes nothing and
    /// gives false. A value that is no number throws `OutOfRangeException`.
    bool FromString(Utilities::String const& text);
    /// An export record in a fixed form, with five decimals; its date and condition are part of the form.
    Utilities::String ToString() const;

    /// The elements of the vector in the space RGB, truncated and not clamped: of a channel beyond 255 the
    /// low 8 bits remain. Black where the colour can't be computed.
    RGBVector GetRGB() const;

    Utilities::String const& GetColorSpace() const { return colorSpace_; }
    void SetColorSpace(Utilities::String const& colorSpace) { colorSpace_ = colorSpace; }
    Utilities::String const& GetDeltaEFormula() const { return deltaEFormula_; }
    void SetDeltaEFormula(Utilities::String const& formula) { deltaEFormula_ = formula; }

    /// All names, as a map with the keys "0", "1" ... in order.
    static Utilities::Anything GetColorSpaces();
    static Utilities::Anything GetDeltaEFormulas();

    /// By this object's formula, with its default weights.
    float GetDeltaE(SpectrumColor const& other) const;
    /// The first three elements in this object's colour space, with five decimals, and their names.
    Utilities::Vector<Utilities::String> GetColorValues() const;
    Utilities::Vector<Utilities::String> GetColorValueNames() const;

private:
    Utilities::String colorSpace_;
    Utilities::String deltaEFormula_;
    Utilities::SmartPointer<Norvelian::Tristim::NVSpectrum> spectrum_; ///< never null
};

} // namespace GUI
