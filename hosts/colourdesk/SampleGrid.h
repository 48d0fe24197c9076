#pragma once

#include "hosts/colourdesk/SampleDocument.h"

#include <vector>

namespace ColourDesk {

/// All samples of a document as rows of a table that asks for what it shows: name, colour, L*, a*, b*, C*, h
/// and the difference to a standard. Row 0 is the head. The order is that of the document or what the table
/// was last sorted by; a sample keeps its index.
class SampleGrid {
public:
    explicit SampleGrid(std::vector<ShownSample> const& samples) : samples_(samples) {}

    /// What the table asks for; invalid for a key of another kind.
    Utilities::Anything GetValue(Utilities::String const& key) const;
    /// "column" or "-column" with ";" between, columns counted from 1; empty for the document's order.
    void Sort(Utilities::String const& order);
    /// What differences are to; -1 for none.
    void SetStandard(long sample) { standard_ = sample; }
    /// The sample in a row of the table, which counts from 1; -1 for the head.
    long GetSample(long row) const;
    /// The row of a sample.
    long GetRow(long sample) const;

private:
    /// What a column shows of a sample, as a number; samples without one come last.
    double GetNumber(long sample, long column) const;
    bool IsBefore(long left, long right, long column) const;
    Utilities::Anything GetRow(long row, bool isHead) const;
    static Utilities::Anything GetColumns();
    std::vector<ShownSample> const& samples_;
    /// By row; empty for the document's order.
    std::vector<long> order_;
    long standard_ = -1;
};

} // namespace ColourDesk
