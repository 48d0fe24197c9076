#pragma once

#include "gui/elements/PropertyContentHelper.h"

#include <string_view>

namespace GUI {

/// The component "PropertyContentHelper", as its interface describes it.
class PropertyContent : public PropertyContentHelper {
public:
    void Clear() override;
    void AddSpectrum(Utilities::String const& path, Norvelian::Tristim::NVSpectrum const& spectrum) override;
    void AddDouble(Utilities::String const& path, double value) override;
    void AddBool(Utilities::String const& path, bool value) override;
    void AddShort(Utilities::String const& path, short value) override;
    void AddLong(Utilities::String const& path, long value) override;
    void AddString(Utilities::String const& path, Utilities::String const& value) override;
    void AddPath(Utilities::String const& path) override;
    Utilities::Anything GetContent() const override { return content_; }
    Utilities::SmartPointer<TreeViewNode> BuildTree(Utilities::Anything const& content) override;
    void Merge(Utilities::Anything const& other) override;

private:
    static constexpr unsigned long firstRoom = 512;
    using Entries = Utilities::Anything::MapOfAnythings;

    void Add(std::string const& entry, Utilities::Anything const& value);
    /// Gives the map room for so many entries more, so that a look-up stays short.
    void MakeRoom();

    Entries content_;
    unsigned long count_ = 0;
    unsigned long room_ = firstRoom;
};

} // namespace GUI
