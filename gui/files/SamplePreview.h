#pragma once

#include "gui/elements/colour/RGBVector.h"

#include <optional>
#include <vector>

namespace GUI {

/// The first samples of a file of measurements, as a file dialog shows them.
struct SamplePreview {
    struct Entry {
        Utilities::String name;
        /// None without a spectrum.
        std::optional<RGBVector> color;
    };
    static constexpr std::size_t most = 12;

    std::vector<Entry> samples;
    /// All that the file has.
    std::size_t count = 0;
    /// It has samples but takes too long to be read in between.
    bool isTooLarge = false;

    /// Without samples for a file that has none. Takes a fifth of a second at most.
    static SamplePreview Of(std::string const& path);
};

} // namespace GUI
