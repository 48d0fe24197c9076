#include "cxf/files/ReadReport.h"

#include <algorithm>

namespace Norvelian::ColorExchangeFormat {

char const* ReadReport::NameOf(ReadNote::Kind kind) {
    switch (kind) {
    case ReadNote::Kind::Taken:
        return "taken";
    case ReadNote::Kind::Assumed:
        return "assumed";
    case ReadNote::Kind::Converted:
        return "converted";
    case ReadNote::Kind::Skipped:
        return "skipped";
    case ReadNote::Kind::Contradiction:
        break;
    }
    return "contradiction";
}

bool ReadReport::HasAssumptions() const {
    return std::any_of(notes_.begin(), notes_.end(), [](ReadNote const& note) {
        return note.kind == ReadNote::Kind::Assumed || note.kind == ReadNote::Kind::Contradiction;
    });
}

std::string ReadReport::GetText() const {
    std::string text;
    for (ReadNote const& note : notes_) {
        if (note.line) text += std::to_string(note.line) + ": ";
        text.append(NameOf(note.kind)).append(": ").append(note.text).append("\n");
    }
    return text;
}

} // namespace Norvelian::ColorExchangeFormat
