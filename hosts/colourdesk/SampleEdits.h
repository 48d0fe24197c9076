#pragma once

#include "hosts/colourdesk/SampleDocument.h"

#include <optional>
#include <vector>

namespace ColourDesk {

/// What the user has changed in a document's samples, to be undone, and to ask before it is lost.
class SampleEdits {
public:
    explicit SampleEdits(SampleDocument& document) : document_(document) {}

    /// Takes over what the library's sample is called now; false if that is what it was.
    bool Take(long sample);
    bool CanUndo() const { return !edits_.empty(); }
    /// The sample whose change was taken back; nothing if there was none.
    std::optional<long> Undo();
    /// Whether there is something that isn't in a file.
    bool AreUnsaved() const { return edits_.size() != saved_; }
    void OnSaved() { saved_ = edits_.size(); }

private:
    struct Edit {
        long sample;
        std::string name;
        std::string description;
    };

    SampleDocument& document_;
    /// What each change replaced.
    std::vector<Edit> edits_;
    /// How many of them the file has; one that was undone is none of them.
    std::size_t saved_ = 0;
};

} // namespace ColourDesk
