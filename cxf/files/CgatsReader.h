#pragma once

#include "cxf/files/SampleFile.h"

namespace Norvelian::ColorExchangeFormat {

/// Reads CGATS.17 / ISO 28178 text: any identifier in the first line ("CGATS.17", "CTI3", ...) or none,
/// several tables, fields in any order, comments, quoted texts, LF, CR LF or CR.
///
/// A sample's name is SAMPLE_NAME, or SAMPLE_ID where there is no name. Spectra are percentages if the
/// header's SPECTRAL_NORM is 100 or, without one, if any reflectance of the table is above 2; they are kept
/// as fractions. The set's property "SPECTRAL_SCALE" says "fraction" or "percent", and how that was told.
/// Colours and spectra get the conditions that the header states; fields that aren't understood are kept
/// as unknown attributes, keywords and comments of the header as properties.
/// Numbers have a decimal point and no exponent beyond double; NaN and infinity are errors.
std::vector<SampleSetPointer> ReadCgats(std::string_view text, std::string const& name,
                                        ReadOptions const& options);

} // namespace Norvelian::ColorExchangeFormat
