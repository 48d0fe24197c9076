#include "hosts/colourdesk/SampleEdits.h"

#include "cxf/samples/Sample.h"

namespace ColourDesk {

bool SampleEdits::Take(long sample) {
    ShownSample const& shown = document_.GetSamples()[static_cast<std::size_t>(sample)];
    Edit const former{sample, shown.name, shown.description};
    if (!document_.TakeTexts(sample)) return false;
    // A change on top of one that was undone below what is saved: the file has another history.
    if (edits_.size() < saved_) saved_ = static_cast<std::size_t>(-1);
    edits_.push_back(former);
    return true;
}

std::optional<long> SampleEdits::Undo() {
    if (edits_.empty()) return {};
    Edit const edit = edits_.back();
    edits_.pop_back();
    auto const& sample = document_.GetSamples()[static_cast<std::size_t>(edit.sample)].sample;
    sample->RenameSample(edit.name);
    sample->SetDescription(edit.description);
    document_.TakeTexts(edit.sample);
    // The library may not take a name that it has read back as it was.
    if (sample->GetName() != edit.name || sample->GetDescription() != edit.description)
        saved_ = static_cast<std::size_t>(-1);
    return edit.sample;
}

} // namespace ColourDesk
