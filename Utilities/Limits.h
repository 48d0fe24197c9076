#pragma once

#include <cstddef>
#include <string>

namespace Utilities {

/// How much is taken of what comes from outside: files, descriptions, the data that fill them. Readers, loops
/// and the creation of elements charge against the one object that the process holds; whatever passes it is
/// refused with an error that names file and line and says which limit it was. `docs/security.md` has the
/// table.
///
/// A host changes the limits once, before it reads or shows anything:
///
///     Limits limits = Limits::Get();
///     limits.samples = 5000;
///     Limits::Set(limits);
struct Limits {
    /// @name Descriptions and elements
    /// @{
    /// Elements that live at one time in all windows, and elements of one description.
    std::size_t elements = 1'000'000;
    /// Elements inside each other, and properties inside each other.
    std::size_t depth = 200;
    std::size_t attributesOfElement = 1000;
    /// Of one description, or of one XML file of measurements.
    std::size_t attributes = 10'000'000;
    /// Bytes of one attribute's text, and of one line of a measurement file.
    std::size_t textLength = 1'000'000;
    /// Bytes of all texts that the loops of one window write.
    std::size_t unrolledBytes = 256'000'000;
    /// Bytes of the text that is replaced by a loop's counter.
    std::size_t counterVariable = 256;
    /// Values and operators of one formula.
    std::size_t formulaSteps = 100'000;
    /// Bytes of one text that is measured and drawn; what is behind them is left out.
    std::size_t shownText = 32'768;
    std::size_t descriptionBytes = 64'000'000;
    /// @}

    /// @name Files of measurements
    /// @{
    std::size_t samples = 1'000'000;
    /// Of one table.
    std::size_t fields = 10'000;
    /// Numbers and texts of all tables of a file.
    std::size_t values = 50'000'000;
    /// Elements of an XML file of measurements.
    std::size_t fileElements = 10'000'000;
    /// Keywords and comments of one table's header.
    std::size_t headerEntries = 100'000;
    /// Bytes of a header's value that is looked through for conditions.
    std::size_t headerText = 16'384;
    std::size_t sampleFileBytes = 268'435'456;
    /// How long one file may take to be read.
    std::size_t milliseconds = 60'000;
    /// @}

    /// @name Other files
    /// @{
    /// Of one picture, decoded.
    std::size_t pixels = 33'554'432;
    std::size_t pictureBytes = 134'217'728;
    std::size_t languageBytes = 16'777'216;
    std::size_t settingsBytes = 16'777'216;
    /// @}

    static Limits const& Get();
    /// Not while another thread reads.
    static void Set(Limits const& limits);

    /// `more than 200 elements inside each other (the limit "depth")`.
    static std::string Passed(char const* limit, std::size_t value, char const* of);
};

} // namespace Utilities
