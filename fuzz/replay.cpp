// Runs every seed of the targets that are linked in, each once: what a fuzzer found stays mended.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#define X(name) extern "C" int name(std::uint8_t const* data, std::size_t size);
FUZZ_TARGETS
#undef X

namespace {

struct Target {
    char const* name;
    int (*run)(std::uint8_t const* data, std::size_t size);
};

#define X(name) {#name, name},
constexpr Target targets[] = {FUZZ_TARGETS};
#undef X

std::vector<std::filesystem::path> FilesOf(std::filesystem::path const& folder) {
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(folder))
        for (auto const& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    for (Target const& target : targets) {
        // "fuzz_cgats" has its seeds in "cgats".
        auto const files = FilesOf(std::filesystem::path(arguments[1]) / (target.name + 5));
        if (files.empty()) {
            std::fprintf(stderr, "%s has no seeds\n", target.name);
            return 1;
        }
        for (auto const& path : files) {
            std::printf("%s\n", path.c_str());
            std::fflush(stdout);
            std::ifstream file(path, std::ios::binary);
            std::string const bytes((std::istreambuf_iterator<char>(file)), {});
            target.run(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
        }
        std::printf("%s: %zu seeds\n", target.name, files.size());
    }
    return 0;
}
