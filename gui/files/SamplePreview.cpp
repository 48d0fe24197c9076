#include "gui/files/SamplePreview.h"

#include "core/base/Exceptions.h"
#include "cxf/files/SampleFile.h"
#include "gui/elements/colour/ScreenRGB.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

namespace GUI {

namespace Cxf = Norvelian::ColorExchangeFormat;

SamplePreview SamplePreview::Of(std::string const& path) {
    SamplePreview preview;
    // What can't be a file of measurements isn't opened at all: it may be a pipe, or a disk.
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure)) return preview;
    constexpr std::uintmax_t largest = 16'000'000;
    if (std::filesystem::file_size(path, failure) > largest || failure) {
        preview.isTooLarge = !failure;
        return preview;
    }
    using Clock = std::chrono::steady_clock;
    auto const end = Clock::now() + std::chrono::milliseconds(200);
    Cxf::ReadOptions options;
    options.allowExtrapolation = true;
    options.progress = [&](double /*done*/) {
        preview.isTooLarge = Clock::now() > end;
        return !preview.isTooLarge;
    };
    try {
        Tintorium::ScreenRGB const screen;
        for (auto const& set : Cxf::ReadSampleSets(path, options)) {
            for (auto const& sample : set->GetSamples()) {
                if (++preview.count > most) continue;
                Entry entry{sample->GetName().c_str(), {}};
                auto const spectrum = sample->GetSampleAttribute("CXFSpectrum", {}, false);
                if (!spectrum.IsNull()) entry.color = screen.GetRGB(Cxf::Extensions::Cxf2NV(*spectrum));
                preview.samples.push_back(std::move(entry));
            }
        }
    } catch (Norvelian::Utilities::Exceptions::TraceableException const&) {
        // Files of other kinds are looked at too; opening one says what is wrong with it.
        preview.samples.clear();
        preview.count = 0;
    }
    return preview;
}

} // namespace GUI
