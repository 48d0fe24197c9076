#include "hosts/colourdesk/SampleTree.h"

#include "core/base/Exceptions.h"

#include <algorithm>

namespace ColourDesk {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr char const* file = "file";
constexpr long groupSize = 1000;

Anything VectorOf(std::vector<Anything> const& values) {
    Anything::VectorOfAnythings vector(static_cast<std::uint32_t>(values.size()));
    std::copy(values.begin(), values.end(), vector.begin());
    return vector;
}

String Behind(String const& key, char const* prefix) {
    return key.FindSubstring(prefix, 0) == 0 ? key.Mid(String(prefix).Length(), key.Length()) : String();
}

} // namespace

bool SampleTree::HasGroups() const { return Count() > groupSize; }

String SampleTree::GetPath(long sample) const {
    if (sample < 0 || sample >= Count()) return {};
    String const group = HasGroups() ? "/g" + String(sample / groupSize) : String();
    return file + group + "/" + String(sample);
}

long SampleTree::GetSample(String const& path) const {
    long const depth = path.GetTokenCount('/');
    if (depth != (HasGroups() ? 3 : 2)) return -1;
    try {
        long const sample = path.GetToken(depth - 1, '/').GetLong();
        return sample >= 0 && sample < Count() ? sample : -1;
    } catch (Norvelian::Utilities::Exceptions::OutOfRangeException const&) {
        return -1;
    }
}

Anything SampleTree::GetSamples(long first) const {
    std::vector<Anything> entries;
    for (long sample = first; sample < std::min(first + groupSize, Count()); ++sample) {
        ShownSample const& shown = document_.GetSamples()[static_cast<std::size_t>(sample)];
        Anything::MapOfAnythings entry;
        entry["Key"] = String(sample);
        entry["Text"] = shown.name.c_str();
        entry["Color"] = shown.color.GetAnything();
        entries.emplace_back(entry);
    }
    return VectorOf(entries);
}

Anything SampleTree::GetGroups() const {
    std::vector<Anything> entries;
    for (long first = 0; first < Count(); first += groupSize) {
        Anything::MapOfAnythings entry;
        entry["Key"] = "g" + String(first / groupSize);
        entry["Text"] = String(first + 1) + " \u2013 " + String(std::min(first + groupSize, Count()));
        entry["HasChildren"] = true;
        entries.emplace_back(entry);
    }
    return VectorOf(entries);
}

Anything SampleTree::GetDragged(String const& path) const {
    if (!(path == file)) return GetDragged(GetSample(path));
    Anything::MapOfAnythings content;
    content["Files"] = VectorOf({document_.GetPath().c_str()});
    return content;
}

Anything SampleTree::GetDragged(long sample) const {
    if (sample < 0 || sample >= Count()) return {};
    ShownSample const& shown = document_.GetSamples()[static_cast<std::size_t>(sample)];
    Anything::MapOfAnythings content;
    content["Text"] = (shown.name + "\t" + SampleDocument::FormatLab(shown.lab)).c_str();
    content["Color"] = shown.color.GetAnything();
    return content;
}

Anything SampleTree::GetValue(String const& key) const {
    if (key == "Children") {
        Anything::MapOfAnythings entry;
        entry["Key"] = file;
        entry["Text"] = document_.GetFileName().c_str();
        entry["HasChildren"] = Count() > 0;
        entry["Expanded"] = true;
        return VectorOf({entry});
    }
    if (String const path = Behind(key, "DragData "); path.Length() != 0) return GetDragged(path);
    String const path = Behind(key, "Children ");
    if (path == file) return HasGroups() ? GetGroups() : GetSamples(0);
    String const group = Behind(path, "file/g");
    return group.Length() != 0 ? GetSamples(group.GetLong() * groupSize) : Anything();
}

} // namespace ColourDesk
