// The start of Colour Desk to its first paint, as a whole process: against the smallest widget program, and
// with a file of 100 000 samples against a bound of time and of memory.

#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr double bytesPerMegabyte = 1e6;

/// From the fork to the first byte that the program writes, which it does once it has painted. Reports the
/// most memory that it had.
void Start(benchmark::State& state, std::string const& program, std::string const& argument,
           std::string const& file, double mostMegabytes) {
    double megabytes = 0;
    for (auto _ : state) {
        int ends[2] = {};
        if (::pipe(ends) != 0) return state.SkipWithError("no pipe");
        auto const start = Clock::now();
        pid_t const child = ::fork();
        if (child == 0) {
            ::dup2(ends[1], STDOUT_FILENO);
            ::close(ends[0]);
            ::close(ends[1]);
            ::execl(program.c_str(), program.c_str(), argument.empty() ? nullptr : argument.c_str(),
                    file.empty() ? nullptr : file.c_str(), nullptr);
            ::_exit(127);
        }
        ::close(ends[1]);
        char mark = 0;
        bool const painted = ::read(ends[0], &mark, 1) == 1;
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        ::close(ends[0]);
        int status = 0;
        rusage usage{};
        ::wait4(child, &status, 0, &usage);
        if (!painted || status != 0) return state.SkipWithError("the program painted nothing or failed");
        megabytes = static_cast<double>(usage.ru_maxrss) * 1024 / bytesPerMegabyte;
    }
    state.counters["MB"] = megabytes;
    if (megabytes > mostMegabytes)
        state.SkipWithError(("it took " + std::to_string(megabytes) + " MB").c_str());
}

/// Spectra in CGATS text, all different.
std::string WriteSamples(int count) {
    std::string const path = (std::filesystem::temp_directory_path() / "bench_samples.txt").string();
    std::ofstream file(path);
    file << "CGATS.17\nILLUMINANT \"D50\"\nOBSERVER \"2\"\nNUMBER_OF_FIELDS 38\nBEGIN_DATA_FORMAT\n"
            "SAMPLE_ID SAMPLE_NAME";
    for (int wavelength = 380; wavelength <= 730; wavelength += 10) file << " SPECTRAL_NM" << wavelength;
    file << "\nEND_DATA_FORMAT\nNUMBER_OF_SETS " << count << "\nBEGIN_DATA\n";
    char number[16];
    for (int i = 0; i < count; ++i) {
        file << i + 1 << " \"Sample " << i + 1 << '"';
        for (int band = 0; band < 36; ++band) {
            double const wave = std::sin(0.17 * band + 0.61 * i) * std::cos(0.0007 * i);
            std::snprintf(number, sizeof number, " %.4f", 0.5 + 0.45 * wave);
            file << number;
        }
        file << '\n';
    }
    file << "END_DATA\n";
    return path;
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    std::string const once = "--exit-after-first-paint";
    std::string const samples = WriteSamples(100000);
    auto const add = [](char const* name, auto const&... arguments) {
        return benchmark::RegisterBenchmark(name, Start, arguments...)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    };
    constexpr double anyMemory = 1e6;
    add("start.first-paint/ours", COLOURDESK, once, "", anyMemory)->Iterations(20);
    add("start.first-paint/floor:smallest-widget", SMALLEST_WIDGET, "", "", anyMemory)->Iterations(20);
    add("start.samples-100000/ours", COLOURDESK, once, samples, 400.0)->Iterations(2);
    benchmark::RunSpecifiedBenchmarks();
    std::filesystem::remove(samples);
}
