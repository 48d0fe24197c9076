#pragma once

#include "hosts/colourdesk/SampleDocument.h"

namespace ColourDesk {

/// A document as a tree: its file, in it the samples, by the thousand where there are more. A sample is known
/// by its index.
class SampleTree {
public:
    explicit SampleTree(SampleDocument const& document) : document_(document) {}

    /// What the tree asks for; invalid for a key of another kind.
    Utilities::Anything GetValue(Utilities::String const& key) const;
    /// Empty for none.
    Utilities::String GetPath(long sample) const;
    /// -1 for a node that is no sample.
    long GetSample(Utilities::String const& path) const;
    /// A sample as it is dragged out: its name, numbers and colour.
    Utilities::Anything GetDragged(long sample) const;

private:
    long Count() const { return static_cast<long>(document_.GetSamples().size()); }
    bool HasGroups() const;
    Utilities::Anything GetSamples(long first) const;
    Utilities::Anything GetGroups() const;
    Utilities::Anything GetDragged(Utilities::String const& path) const;

    SampleDocument const& document_;
};

} // namespace ColourDesk
