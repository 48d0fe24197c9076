#pragma once

#include "cxf/conditions/TristimException.h"
#include "cxf/files/SampleFile.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// What the fuzz targets of the sample readers share.
namespace Fuzz {

namespace Cxf = Norvelian::ColorExchangeFormat;

inline void Require(bool held, char const* what) {
    if (held) return;
    std::fprintf(stderr, "violated: %s\n", what);
    std::abort();
}

/// Reads a text; what can be read must give spectra that can be used, and writing it must lose nothing:
/// read again and written again it is the same text.
inline void ReadAndWrite(std::string_view text, Cxf::SampleFormat format) {
    std::vector<Cxf::SampleSetPointer> sets;
    Cxf::ReadReport report;
    Cxf::ReadOptions options;
    options.report = &report;
    try {
        sets = Cxf::ParseSampleSets(text, "fuzz", options);
    } catch (Cxf::FileException const& failure) {
        Require(std::string_view(failure.what()).starts_with("fuzz:"), "a message names the file");
        return;
    }
    for (auto const& set : sets)
        for (auto const& sample : set->GetSamples()) {
            auto const spectrum = sample->GetSampleAttribute("CXFSpectrum", {}, false);
            if (spectrum.IsNull()) continue;
            try {
                static_cast<void>(Cxf::Extensions::Cxf2NV(*spectrum));
            } catch (Norvelian::Tristim::TristimException const&) {
                // A value beyond float is one double can hold and a spectrum can't.
            }
        }
    std::string written;
    try {
        written = Cxf::FormatSampleSets(sets, format);
    } catch (Norvelian::Tristim::TristimException const&) {
        return;
    }
    try {
        std::string const again = Cxf::FormatSampleSets(Cxf::ParseSampleSets(written, "again", {}), format);
        Require(written == again, "written, read and written again it is the same");
    } catch (std::exception const& failure) {
        std::fprintf(stderr, "%s\n%s\n", failure.what(), written.c_str());
        Require(false, "what was written can be read and written");
    }
}

} // namespace Fuzz
