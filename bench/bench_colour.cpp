// The colour library against floors (the same job done directly) and peers (a component that others use),
// measured in the same run: case/ours, case/floor:what, case/peer:what. Each checks its own result.

#include "bench/memory_read.h"
#include "cxf/colorimetry/Batch.h"
#include "cxf/colorimetry/Kernels.h"
#include "cxf/colorimetry/TristimService.h"
#include "cxf/files/SampleFile.h"
#include "cxf/samples/ScreenTransform.h"

#include <benchmark/benchmark.h>
#include <charconv>
#include <cmath>
#include <lcms2.h>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace Norvelian;

constexpr std::size_t kCount = 1000000;

struct Data {
    std::vector<float> spectra = std::vector<float>(kCount * Tristim::kBands);
    std::vector<float> colours = std::vector<float>(kCount * 3);
    std::vector<double> lab1 = std::vector<double>(kCount * 3);
    std::vector<double> lab2 = std::vector<double>(kCount * 3);
    std::vector<double> differences = std::vector<double>(kCount);
    std::shared_ptr<Tristim::WeightSet const> weights = Tristim::WeightsFor({});
    std::string text = ColorExchangeFormat::ReadFileBytes(TEST_DATA "colour_order_1485_36band.txt");

    Data() {
        std::mt19937 generator(5);
        std::uniform_real_distribution<float> value(0, 1);
        for (float& v : spectra) v = value(generator);
        std::uniform_real_distribution<double> lightness(0, 100);
        std::uniform_real_distribution<double> chromatic(-80, 80);
        for (auto* const lab : {&lab1, &lab2})
            for (std::size_t i = 0; i < lab->size(); ++i)
                (*lab)[i] = i % 3 ? chromatic(generator) : lightness(generator);
    }
};
Data& Shared() {
    static Data data;
    return data;
}

void Bytes(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(bytes));
}
void Items(benchmark::State& state, std::size_t items) {
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(items));
}

// ------------------------------------------------------------------ spectra to colours

void MemoryRead(benchmark::State& state) {
    Data& data = Shared();
    double sum = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(sum = Bench::SumOf(data.spectra.data(), data.spectra.size()));
    if (std::abs(sum / static_cast<double>(data.spectra.size()) - 0.5) > 0.01)
        state.SkipWithError("wrong sum");
    Bytes(state, data.spectra.size() * sizeof(float));
}

void CheckColour(benchmark::State& state, char const* space) {
    Data& data = Shared();
    Tristim::NVMeasureConditions conditions;
    conditions.SetMeasureCondition(Tristim::Vocabulary::Key::ColorSpaceType, space);
    for (std::size_t const i : {std::size_t{0}, std::size_t{777}, kCount - 1}) {
        auto const begin = data.spectra.begin() + static_cast<std::ptrdiff_t>(i * Tristim::kBands);
        Tristim::NVSpectrum const spectrum(std::vector<float>(begin, begin + Tristim::kBands));
        auto const expected = Tristim::TristimService::GetVector(spectrum, conditions);
        for (short k = 0; k < 3; ++k)
            if (std::abs(expected.GetElement(k) - data.colours[3 * i + static_cast<std::size_t>(k)]) > 2e-4F)
                state.SkipWithError("wrong colour");
    }
}

void SpectraToXYZ(benchmark::State& state) {
    Data& data = Shared();
    for (auto _ : state) {
        Tristim::Batch::SpectraToXYZ(data.spectra, *data.weights, std::span<float>(data.colours));
        benchmark::ClobberMemory();
    }
    CheckColour(state, "CIEXYZ");
    Items(state, kCount);
}

void SpectraToXYZPortable(benchmark::State& state) {
    Data& data = Shared();
    for (auto _ : state) {
        Tristim::Kernels::Portable().spectraToXYZ(data.spectra.data(), data.weights->fast.data(),
                                                  data.colours.data(), kCount);
        benchmark::ClobberMemory();
    }
    CheckColour(state, "CIEXYZ");
    Items(state, kCount);
}

void SpectraToLab(benchmark::State& state) {
    Data& data = Shared();
    for (auto _ : state) {
        Tristim::Batch::SpectraToLab(data.spectra, *data.weights, data.colours);
        benchmark::ClobberMemory();
    }
    CheckColour(state, "CIELab");
    Items(state, kCount);
}

// ------------------------------------------------------------------ differences

void Ciede2000(benchmark::State& state) {
    Data& data = Shared();
    for (auto _ : state) {
        Tristim::Batch::DeltaE2000(data.lab1, data.lab2, data.differences);
        benchmark::ClobberMemory();
    }
    for (std::size_t i = 0; i < kCount; ++i) {
        cmsCIELab const one{data.lab1[3 * i], data.lab1[3 * i + 1], data.lab1[3 * i + 2]};
        cmsCIELab const other{data.lab2[3 * i], data.lab2[3 * i + 1], data.lab2[3 * i + 2]};
        if (std::abs(cmsCIE2000DeltaE(&one, &other, 1, 1, 1) - data.differences[i]) > 1e-9) {
            state.SkipWithError("disagrees with Little CMS");
            break;
        }
    }
    Items(state, kCount);
}

void Ciede2000LittleCms(benchmark::State& state) {
    Data& data = Shared();
    for (auto _ : state) {
        for (std::size_t i = 0; i < kCount; ++i) {
            cmsCIELab const one{data.lab1[3 * i], data.lab1[3 * i + 1], data.lab1[3 * i + 2]};
            cmsCIELab const other{data.lab2[3 * i], data.lab2[3 * i + 1], data.lab2[3 * i + 2]};
            data.differences[i] = cmsCIE2000DeltaE(&one, &other, 1, 1, 1);
        }
        benchmark::ClobberMemory();
    }
    Items(state, kCount);
}

// ------------------------------------------------------------------ files

void ReadCgats(benchmark::State& state) {
    Data& data = Shared();
    for (auto _ : state) {
        auto const sets = ColorExchangeFormat::ParseSampleSets(data.text, "bench");
        if (sets.size() != 1 || sets[0]->GetSamples().size() != 1485) state.SkipWithError("not all samples");
    }
    Bytes(state, data.text.size());
}

/// Nothing but the numbers: what is between them is skipped without a look.
void NumbersOnly(benchmark::State& state) {
    Data& data = Shared();
    std::size_t const begin = data.text.find("BEGIN_DATA\n");
    for (auto _ : state) {
        std::size_t numbers = 0;
        double value = 0;
        char const* const end = data.text.data() + data.text.size();
        for (char const* at = data.text.data() + begin; at != end;) {
            auto const [next, error] = std::from_chars(at, end, value);
            benchmark::DoNotOptimize(value);
            numbers += error == std::errc();
            at = error == std::errc() ? next : at + 1;
        }
        if (numbers < std::size_t{1485} * Tristim::kBands) state.SkipWithError("not all numbers");
    }
    Bytes(state, data.text.size());
}

// ------------------------------------------------------------------ screen colours

void ToScreen(benchmark::State& state) {
    Data& data = Shared();
    constexpr std::size_t count = 20000;
    ColorExchangeFormat::ScreenTransform const screen;
    std::vector<ColorExchangeFormat::ScreenColour> colours(count);
    for (auto _ : state) screen.Convert(std::span<double const>(data.lab1).first(3 * count), colours);
    Items(state, count);
}

/// The device values alone, without the way back that tells whether the screen can show the colour.
void ToScreenLittleCms(benchmark::State& state) {
    Data& data = Shared();
    constexpr std::size_t count = 20000;
    cmsHPROFILE const lab = cmsCreateLab4Profile(nullptr);
    cmsHPROFILE const screen = cmsCreate_sRGBProfile();
    cmsHTRANSFORM const transform =
        cmsCreateTransform(lab, TYPE_Lab_DBL, screen, TYPE_RGB_8, INTENT_RELATIVE_COLORIMETRIC, 0);
    std::vector<std::uint8_t> rgb(3 * count);
    for (auto _ : state) cmsDoTransform(transform, data.lab1.data(), rgb.data(), count);
    cmsDeleteTransform(transform);
    cmsCloseProfile(screen);
    cmsCloseProfile(lab);
    Items(state, count);
}

BENCHMARK(SpectraToXYZ)->Name("colour.xyz/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryRead)->Name("colour.xyz/floor:memory-read")->Unit(benchmark::kMillisecond);
BENCHMARK(SpectraToXYZPortable)->Name("colour.xyz/peer:own-portable-kernel")->Unit(benchmark::kMillisecond);
BENCHMARK(SpectraToLab)->Name("colour.lab/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryRead)->Name("colour.lab/floor:memory-read")->Unit(benchmark::kMillisecond);
BENCHMARK(Ciede2000)->Name("colour.ciede2000/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(Ciede2000LittleCms)->Name("colour.ciede2000/peer:lcms2")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadCgats)->Name("colour.cgats/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(NumbersOnly)->Name("colour.cgats/floor:from_chars-only")->Unit(benchmark::kMillisecond);
BENCHMARK(ToScreen)->Name("colour.screen/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(ToScreenLittleCms)->Name("colour.screen/peer:lcms2-without-gamut")->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
