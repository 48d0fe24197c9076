// The services that elements ask for text and pictures, against floors measured in the same run.

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/ProgramDirectory.h"
#include "services/LanguageService.h"
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

using Utilities::String;

// ------------------------------------------------------------------ language

constexpr int keyCount = 10000;
constexpr int languageCount = 10;

/// 10 languages of 10 000 keys in the program's directory.
class Languages {
public:
    Languages() {
        std::string keyFile = "1\n";
        for (int i = 0; i < keyCount; ++i) {
            keys.push_back("Group " + std::to_string(i % 20) + " text " + std::to_string(i));
            keyFile += keys.back() + "\n";
        }
        std::string const directory = Utilities::GetProgramDirectory() + "/Languages/";
        Tests::WriteFile(directory + "Languages.key", keyFile);
        for (int language = 0; language < languageCount; ++language) {
            std::string text = "1\n";
            for (int i = 0; i < keyCount; ++i) text += Translation(language, i) + "\n";
            Tests::WriteFile(directory + "L" + std::to_string(language) + ".lang", text);
        }
        ::setenv("XDG_CONFIG_HOME", settings_.GetPath().c_str(), 1);
        std::shuffle(keys.begin(), keys.end(), std::mt19937(3)); // NOLINT(bugprone-random-generator-seed)
        keyNames.assign(keys.begin(), keys.end());
    }
    ~Languages() { std::filesystem::remove_all(Utilities::GetProgramDirectory() + "/Languages"); }
    Languages(Languages const&) = delete;
    Languages& operator=(Languages const&) = delete;

    static std::string Translation(int language, int key) {
        return "Translated into " + std::to_string(language) + " of " + std::to_string(key);
    }

    /// In shuffled order.
    std::vector<std::string> keys;
    std::vector<String> keyNames;

private:
    Tests::TemporaryDirectory settings_;
};

Languages const& SharedLanguages() {
    static Languages const languages;
    return languages;
}

void LanguageLookup(benchmark::State& state, std::size_t visited) {
    auto const& keys = SharedLanguages().keyNames;
    Utilities::LanguageService service;
    service.SetLanguage("L7");
    std::size_t at = 0;
    std::size_t translated = 0;
    for (auto _ : state) {
        String const text = Utilities::LanguageServiceInterface::GetTranslation(keys[at]);
        translated += text.GetCharPointer()[0] == 'T' ? 1U : 0U;
        if (++at == visited) at = 0;
    }
    if (translated != static_cast<std::size_t>(state.iterations())) state.SkipWithError("not translated");
}

void HashFind(benchmark::State& state, std::size_t visited) {
    auto const& keys = SharedLanguages().keys;
    std::unordered_map<std::string, std::string> map;
    for (std::string const& key : keys) map[key] = "Translated " + key;
    std::size_t at = 0;
    std::size_t found = 0;
    for (auto _ : state) {
        auto const entry = map.find(keys[at]);
        benchmark::DoNotOptimize(entry);
        found += entry != map.end() ? 1U : 0U;
        if (++at == visited) at = 0;
    }
    if (found != static_cast<std::size_t>(state.iterations())) state.SkipWithError("missed a key");
}

void LanguageLoad(benchmark::State& state) {
    SharedLanguages();
    for (auto _ : state) {
        Utilities::LanguageService service;
        service.Load();
        if (service.GetLanguages().GetSize() != languageCount) state.SkipWithError("not loaded");
    }
}

void ReadFilesOnly(benchmark::State& state) {
    SharedLanguages();
    for (auto _ : state) {
        std::size_t size = 0;
        for (auto const& entry :
             std::filesystem::directory_iterator(Utilities::GetProgramDirectory() + "/Languages"))
            size += Tests::ReadFile(entry.path()).size();
        if (size < keyCount * languageCount * 20U) state.SkipWithError("not read");
    }
}

void RegisterAll() {
    using benchmark::kMillisecond;
    using benchmark::RegisterBenchmark;
    RegisterBenchmark("language.lookup-10000/ours", LanguageLookup, keyCount);
    RegisterBenchmark("language.lookup-10000/floor:unordered_map-find", HashFind, keyCount);
    RegisterBenchmark("language.lookup-hot50/ours", LanguageLookup, 50);
    RegisterBenchmark("language.lookup-hot50/floor:unordered_map-find", HashFind, 50);
    RegisterBenchmark("language.load-10x10000/ours", LanguageLoad)->Unit(kMillisecond);
    RegisterBenchmark("language.load-10x10000/floor:read-files", ReadFilesOnly)->Unit(kMillisecond);
}

} // namespace

int main(int argumentCount, char** arguments) {
    benchmark::Initialize(&argumentCount, arguments);
    RegisterAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
