#include "cxf/files/SampleFile.h"

#include "Utilities/AtomicFile.h"
#include "Utilities/Limits.h"
#include "cxf/files/CgatsReader.h"
#include "cxf/files/CgatsWriter.h"
#include "cxf/files/Utf8.h"
#include "cxf/files/XmlReader.h"
#include "cxf/files/XmlWriter.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

namespace Norvelian::ColorExchangeFormat {

namespace {

bool HasSpectra(SampleSet const& set) {
    auto const& samples = set.GetSamples();
    return std::any_of(samples.begin(), samples.end(), [](SampleSet::SamplePointer const& sample) {
        return !sample->GetSampleAttribute(Tristim::Vocabulary::Format::Spectrum, {}, false).IsNull();
    });
}

} // namespace

std::string ReadFileBytes(std::string const& path) {
    auto const fail = [&path](std::string const& reason) { throw FileException(path, 0, 0, reason); };
    // A pipe would wait for whoever writes into it.
    std::error_code failure;
    auto const status = std::filesystem::status(path, failure);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status) &&
        !std::filesystem::is_directory(status))
        fail("is not an ordinary file");
    std::unique_ptr<std::FILE, decltype(&std::fclose)> const file(std::fopen(path.c_str(), "rb"),
                                                                  &std::fclose);
    if (!file) fail(std::string("can't be opened: ") + std::strerror(errno));
    std::size_t const largest = ::Utilities::Limits::Get().sampleFileBytes;
    auto const size = std::filesystem::file_size(path, failure);
    std::string bytes;
    if (!failure) bytes.reserve(std::min<std::size_t>(size, largest));
    char buffer[65536];
    while (std::size_t const got = std::fread(buffer, 1, sizeof(buffer), file.get())) {
        if (bytes.size() + got > largest)
            fail("the file has " + ::Utilities::Limits::Passed("sampleFileBytes", largest, "bytes"));
        bytes.append(buffer, got);
    }
    if (std::ferror(file.get())) fail(std::string("can't be read: ") + std::strerror(errno));
    return bytes;
}

std::vector<SampleSetPointer> ParseSampleSets(std::string_view text, std::string const& name,
                                              ReadOptions const& options) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        std::string const converted = FromUtf16(text);
        if (options.report) options.report->Add(ReadNote::Kind::Converted, 0, "UTF-16 to UTF-8");
        return ParseSampleSets(converted, name, options);
    }
    auto const begin = text.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    bool const xml = begin != std::string_view::npos && text[begin] == '<';
    std::vector<SampleSetPointer> sets = xml ? ReadXml(text, name, options) : ReadCgats(text, name, options);
    if (sets.empty()) throw FileException(name, 1, 1, "the file holds no samples");
    bool const spectra =
        std::any_of(sets.begin(), sets.end(), [](SampleSetPointer const& set) { return HasSpectra(*set); });
    if (options.requireSpectra && !spectra)
        throw FileException(name, 1, 1, "the file holds no spectra; expected fields such as SPECTRAL_NM380");
    return sets;
}

SampleFormat FormatOf(std::string const& path) {
    for (std::string_view const ending : {".xml", ".cxf", ".XML", ".CXF"})
        if (path.ends_with(ending)) return SampleFormat::Xml;
    return SampleFormat::Cgats;
}

std::string FormatSampleSets(std::vector<SampleSetPointer> const& sets, SampleFormat format) {
    return format == SampleFormat::Xml ? WriteXml(sets) : WriteCgats(sets);
}

void WriteSampleSets(std::string const& path, std::vector<SampleSetPointer> const& sets,
                     SampleFormat format) {
    std::string const text = FormatSampleSets(sets, format);
    try {
        ::Utilities::WriteFileAtomically(path, text);
    } catch (Utilities::Exceptions::ResourceException const& failure) {
        // The reason names the file already.
        std::string_view reason = failure.what();
        if (reason.starts_with(path + ": ")) reason.remove_prefix(path.size() + 2);
        throw FileException(path, 0, 0, std::string(reason));
    }
}

std::vector<SampleSetPointer> ReadSampleSets(std::string const& path, ReadOptions const& options) {
    return ParseSampleSets(ReadFileBytes(path), path, options);
}

SampleSetPointer ReadSampleSet(std::string const& path, ReadOptions const& options) {
    std::vector<SampleSetPointer> const sets = ReadSampleSets(path, options);
    if (options.requireSpectra)
        for (SampleSetPointer const& set : sets)
            if (HasSpectra(*set)) return set;
    return sets.front();
}

} // namespace Norvelian::ColorExchangeFormat
