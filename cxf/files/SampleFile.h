#pragma once

#include "cxf/files/FileException.h"
#include "cxf/files/ReadReport.h"
#include "cxf/samples/SampleSet.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

using SampleSetPointer = ::Utilities::SmartPointer<SampleSet>;

struct ReadOptions {
    /// Tables without spectra are an error.
    bool requireSpectra = false;
    /// Spectra may lack bands of 380 to 730 nm; their end values are repeated then.
    bool allowExtrapolation = false;
    /// Whatever the file doesn't state is an error, and so is a contradiction in its header.
    bool strict = false;
    /// Receives what the reader made of the file, in addition to what it holds already.
    ReadReport* report = nullptr;
    /// Asked up to some hundred times while a file is read, with the part that is done, from 0 to 1; false
    /// ends the reading with `ReadCancelled`. It runs on the thread that reads.
    std::function<bool(double done)> progress = {};
};

/// Reads a file of samples: CGATS.17 / ISO 28178 text (`CgatsReader.h`) or the XML form (`XmlReader.h`), told
/// apart by the first character. One set for each table; there is at least one, and none is empty.
/// Throws `FileException`; a file that can't be read to its end gives nothing. `Utilities::Limits` says how
/// much a file may hold and how long reading it may take.
std::vector<SampleSetPointer> ReadSampleSets(std::string const& path, ReadOptions const& options = {});
/// The first set of the file; with `requireSpectra` the first that has spectra. To write a file again with
/// all its tables, keep what `ReadSampleSets` gives.
SampleSetPointer ReadSampleSet(std::string const& path, ReadOptions const& options = {});

/// The same from a text; `name` is in messages.
std::vector<SampleSetPointer> ParseSampleSets(std::string_view text, std::string const& name,
                                              ReadOptions const& options = {});

enum class SampleFormat { Cgats, Xml };
/// XML for names that end in ".xml" or ".cxf", CGATS text for all others.
SampleFormat FormatOf(std::string const& path);

/// The sets as text. Throws `TristimException` for what the format can't hold: CGATS has one shape for all
/// samples of a table, and neither recipes nor XML parts (`CgatsWriter.h`).
std::string FormatSampleSets(std::vector<SampleSetPointer> const& sets, SampleFormat format);
/// Writes a file as a whole or not at all. Throws `TristimException` as above and `FileException`.
void WriteSampleSets(std::string const& path, std::vector<SampleSetPointer> const& sets, SampleFormat format);

/// The bytes of a file, as many as `Utilities::Limits` allows. Throws `FileException`.
std::string ReadFileBytes(std::string const& path);

} // namespace Norvelian::ColorExchangeFormat
