#pragma once

#include "cxf/files/SampleFile.h"
#include "gui/elements/colour/RGBVector.h"
#include "gui/elements/colour/ScreenRGB.h"

#include <array>
#include <string>
#include <vector>

namespace ColourDesk {

/// One sample of a document, with everything the window shows of it.
struct ShownSample {
    Utilities::SmartPointer<Norvelian::ColorExchangeFormat::Sample> sample;
    std::string name;
    std::string description;
    /// Reflectance factor at 380, 390 ... 730 nm.
    std::vector<float> spectrum;
    /// L*, a*, b* under the document's conditions.
    std::array<double, 3> lab{};
    /// What the numbers hold under, in words, with what was done to the spectrum: "D50, 2°; end values
    /// repeated above 700 nm".
    std::string condition;
    GUI::RGBVector color;
};

/// An opened file of measured samples. It is read as a whole: a document either has all samples of its
/// file or doesn't exist.
class SampleDocument {
public:
    SampleDocument() = default;
    /// Reads a file, with its colours as `screen` shows them. Spectra need at least 400 to 700 nm. Throws
    /// `Norvelian::ColorExchangeFormat::FileException` with file, line, column and reason.
    static SampleDocument Open(std::string const& path,
                               Tintorium::ScreenRGB const& screen = Tintorium::ScreenRGB());

    /// Writes all tables of the file, also those without spectra, in the form that the name tells. Throws
    /// what reading and writing throw.
    void SaveAs(std::string const& path) const;

    std::string const& GetPath() const { return path_; }
    std::string GetFileName() const;
    /// Reads name and description of a sample anew; false if they are what is known.
    bool TakeTexts(long sample);
    /// Whether the user may not write the file, so that its samples stay as they are.
    bool IsWriteProtected() const;
    std::vector<ShownSample> const& GetSamples() const { return samples_; }
    /// What the reader made of the file, by line.
    Norvelian::ColorExchangeFormat::ReadReport const& GetReport() const { return report_; }

    /// "L* 61.03   a* 19.71   b* −12.20", as numbers are written on the screen.
    static std::string FormatLab(std::array<double, 3> const& lab);

private:
    std::string path_;
    /// All of the file, in which the shown samples are.
    std::vector<Norvelian::ColorExchangeFormat::SampleSetPointer> sets_;
    std::vector<ShownSample> samples_;
    Norvelian::ColorExchangeFormat::ReadReport report_;
};

} // namespace ColourDesk
