#include "inspection/PropertyContent.h"

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/Limits.h"
#include "core/creators/ComponentCreator.h"
#include "cxf/conditions/NVSpectrum.h"
#include "cxf/conditions/Vocabulary.h"
#include "inspection/PropertyTree.h"

#include <utility>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<PropertyContent> const creator({"PropertyContentHelper",
                                                                  "$Revision: 1.12 $", "GUI"});

String Translate(String const& key) { return Utilities::LanguageServiceInterface::GetTranslation(key); }

/// The root's name in the entry of that number. Throws if there is no such entry.
String RootOf(Anything::MapOfAnythings const& entries, char const* number) {
    return entries[number].GetString().GetToken(1, '/');
}

} // namespace

void PropertyContent::Clear() {
    content_ = Entries();
    count_ = 0;
    room_ = firstRoom;
}

void PropertyContent::Add(std::string const& entry, Anything const& value) {
    if (count_ == room_) MakeRoom();
    String const number(count_);
    content_[number] = String(entry);
    if (value.IsValid()) content_[String("v") + number] = value;
    ++count_;
}

void PropertyContent::MakeRoom() {
    room_ *= 8;
    Entries larger(static_cast<std::uint32_t>(room_));
    for (auto it = content_.Begin(); it.IsValid(); ++it) larger[it.GetKey()] = it.GetValue();
    content_ = std::move(larger);
}

void PropertyContent::AddDouble(String const& path, double value) { Add("d/" + path.GetStdString(), value); }
void PropertyContent::AddBool(String const& path, bool value) { Add("b/" + path.GetStdString(), value); }
void PropertyContent::AddShort(String const& path, short value) { Add("w/" + path.GetStdString(), value); }
void PropertyContent::AddLong(String const& path, long value) { Add("l/" + path.GetStdString(), value); }
void PropertyContent::AddString(String const& path, String const& value) {
    Add("s/" + path.GetStdString(), value);
}
void PropertyContent::AddPath(String const& path) { Add("e/" + path.GetStdString(), {}); }

void PropertyContent::AddSpectrum(String const& path, Norvelian::Tristim::NVSpectrum const& spectrum) {
    namespace Key = Norvelian::Tristim::Vocabulary::Key;
    auto const& conditions = spectrum.GetMeasureConditions();
    AddString(path + "/Lambda Min", "380 nm");
    AddString(path + "/Lambda Max", "730 nm");
    AddString(path + "/Resolution", " 10 nm");
    AddString(path + "/SpectrumType", conditions.GetMeasureCondition(Key::SpectrumType));
    long wavelength = 380;
    for (float const value : spectrum.GetValues()) {
        AddDouble(path + "/DataPoints/" + String(wavelength) + " nm", static_cast<double>(value));
        wavelength += 10;
    }
    AddString(path + "/Filter", Translate(conditions.GetMeasureCondition(Key::Filter)));
}

Utilities::SmartPointer<TreeViewNode> PropertyContent::BuildTree(Anything const& content) {
    if (content.IsOfTypeMap()) return PropertyTree().Build(content.GetMapOfAnythings());
    PropertyContent none;
    none.AddPath(Translate("No Information from element supporting PI"));
    return PropertyTree().Build(none.content_);
}

void PropertyContent::Merge(Anything const& other) {
    if (!other.IsValid()) return;
    auto const& entries = other.GetMapOfAnythings();
    bool isBelow = false;
    String root;
    if (count_ != 0 && entries.GetSize() != 0) {
        Entries const& own = content_;
        root = RootOf(own, "1");
        isBelow = !(RootOf(entries, "1") == root);
    }
    for (unsigned long n = 0; Anything const* const entry = entries.FindValue(String(n)); ++n) {
        std::string text = entry->GetString().GetStdString();
        if (isBelow) text.insert(std::min<std::size_t>(text.size(), 2), root.GetStdString() + '/');
        Anything const* const value = entries.FindValue(String("v") + String(n));
        Add(text, value ? *value : Anything());
    }
}

} // namespace GUI
