#pragma once

#include "gui/elements/colour/RGBVector.h"
#include "gui/elements/description/Description.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace GUI {

/// What the text of an attribute means.
enum class AttributeType : std::uint8_t { Text, Flag, Number, Colour, ElementName, ImageName, Map };

/// The numbers that an attribute can hold.
struct AttributeRange {
    double minimum = -2147483648.0;
    double maximum = 4294967295.0;
};

/// Sizes and places that can't be negative, in pixels.
inline constexpr AttributeRange unsignedRange{0, 4294967295.0};
/// What is kept in 16 bits.
inline constexpr AttributeRange shortRange{0, 65535.0};

/// One attribute of an element's description: its key beside its default, as data that can be listed.
struct Attribute {
    char const* key = "";
    AttributeType type = AttributeType::Text;
    /// The text used when the attribute is absent.
    char const* defaultValue = "";
    char const* meaning = "";
    /// Its absence is an error.
    bool mandatory = false;
    AttributeRange range = {};
    /// False for what a base class reads and elements of this component make no use of; see `Unused`.
    bool hasEffect = true;
};

/// An attribute of a base class that a component makes no use of, and why. A description that gives it all
/// the same is reported.
constexpr Attribute Unused(Attribute attribute, char const* why) {
    attribute.meaning = why;
    attribute.hasEffect = false;
    return attribute;
}

/// Says which attributes the elements of one component, or of a class that components derive from, read
/// beyond those of a base class. Instances are static objects and live as long as their module does; checks
/// of descriptions and the reference of components are made from them. See `ElementRegistration`.
class AttributeTable {
public:
    /// What a node of that name in a description is.
    enum class Kind : std::uint8_t {
        Element,
        /// Read by its parent; see `IsPartOfElement`.
        Part,
        /// An element whose children are patterns: their values are formulas until it has run, and are not
        /// checked before.
        Pattern,
    };

    /// `component` is the name in descriptions; `base` is the table that it extends, null for none. The base
    /// may be constructed later.
    AttributeTable(char const* component, AttributeTable const* base, std::span<Attribute const> attributes,
                   Kind kind = Kind::Element);
    AttributeTable(AttributeTable const&) = delete;
    AttributeTable& operator=(AttributeTable const&) = delete;
    ~AttributeTable();

    std::string_view GetComponent() const { return component_; }
    AttributeTable const* GetBase() const { return base_; }
    std::span<Attribute const> GetAttributes() const { return attributes_; }
    Kind GetKind() const { return kind_; }

    /// The table of that component, null if it has none.
    static AttributeTable const* Find(std::string_view component);
    /// Whether nodes of that name are no elements of their own: their parent reads them, and no component
    /// of that name is made. Examples are separators, blocks of styles, settings.
    static bool IsPartOfElement(std::string_view name);
    static std::vector<AttributeTable const*> const& GetAll();
    /// All attributes of a component, those of its bases first.
    static std::vector<Attribute> Collect(std::string_view component);

private:
    char const* component_;
    AttributeTable const* base_;
    std::span<Attribute const> attributes_;
    Kind kind_;
};

/// The table of a class that others derive from: its static member `attributeTable`.
template <class Element> class AttributesOf final : public AttributeTable {
public:
    using AttributeTable::AttributeTable;
};

/// Reads typed attributes of one node. An absent attribute gives its default, or throws
/// `OutOfRangeException` if it is mandatory, as does a number that can't be read.
class AttributeReader {
public:
    explicit AttributeReader(AttributeMap const& attributes) : attributes_(attributes) {}

    bool Has(Attribute const& attribute) const { return attributes_.FindValue(attribute.key) != nullptr; }
    Utilities::String Text(Attribute const& attribute) const;
    /// True only if the text is "Yes".
    bool Flag(Attribute const& attribute) const { return Is(attribute, "Yes"); }
    /// True unless the text is "No", for flags that are on unless switched off.
    bool FlagUnlessNo(Attribute const& attribute) const { return !Is(attribute, "No"); }
    long Long(Attribute const& attribute) const;
    unsigned long Unsigned(Attribute const& attribute) const;
    double Number(Attribute const& attribute) const;
    /// A text, or the record that `RGBVector::GetAnything` makes.
    RGBVector Colour(Attribute const& attribute) const;
    /// Whether the description gives a colour; an empty text is none.
    bool HasColour(Attribute const& attribute) const;

private:
    /// The text in the description, null if the default applies.
    Utilities::String const* Find(Attribute const& attribute) const;
    bool Is(Attribute const& attribute, char const* text) const;

    AttributeMap const& attributes_;
};

/// Attributes that the base classes read for every element.
namespace CommonAttributes {

inline constexpr Attribute elementType{"GUIElementType", AttributeType::Text, "", "Component to create",
                                       true};
inline constexpr Attribute elementName{"ElementName", AttributeType::ElementName, "",
                                       "Name within the dialog; the key for values and callbacks"};
inline constexpr Attribute registered{"Register", AttributeType::Flag, "Yes",
                                      "Whether the element can be found by name"};
inline constexpr Attribute minimalWidth{
    "MinimalWidth", AttributeType::Number, "0", "Smallest width in pixels", false, unsignedRange};
inline constexpr Attribute maximalWidth{
    "MaximalWidth", AttributeType::Number,
    "10000",        "Largest width in pixels, and the weight when space is shared",
    false,          unsignedRange};
inline constexpr Attribute minimalHeight{
    "MinimalHeight", AttributeType::Number, "0", "Smallest height in pixels", false, unsignedRange};
inline constexpr Attribute maximalHeight{
    "MaximalHeight", AttributeType::Number,
    "10000",         "Largest height in pixels, and the weight when space is shared",
    false,           unsignedRange};
inline constexpr Attribute justificationOnX{"JustificationOnX", AttributeType::Text, "Yes",
                                            "How the element sits in a wider slot"};
inline constexpr Attribute helpFile{"HelpFile", AttributeType::Text, "", "Help file shown for the element"};
inline constexpr Attribute helpTopic{"HelpTopic", AttributeType::Number, "0", "Topic within the help file"};
inline constexpr Attribute properties{"Properties", AttributeType::Map, "", "Property set for the inspector"};

/// Of panes; a pane needs a name.
inline constexpr Attribute paneName{"ElementName", AttributeType::ElementName, "",
                                    "Name within the dialog; the key for values and callbacks", true};
inline constexpr Attribute frame{"Frame", AttributeType::Flag, "No", "A frame around the pane"};
inline constexpr Attribute backgroundColor{"BackgroundColor", AttributeType::Colour, "",
                                           "Background; the window's own colour if absent"};
inline constexpr Attribute backgroundBitmap{"BackgroundBitmap", AttributeType::ImageName, "",
                                            "Image under what the pane draws"};
inline constexpr Attribute selectable{"Selectable", AttributeType::Flag, "No",
                                      "Whether Tab reaches the pane"};

/// For components whose size range follows from what is in them.
constexpr std::array<Attribute, 4> UnusedSizes(char const* why) {
    return {Unused(minimalWidth, why), Unused(maximalWidth, why), Unused(minimalHeight, why),
            Unused(maximalHeight, why)};
}
template <std::size_t count>
constexpr std::array<Attribute, count + 4> WithUnusedSizes(Attribute const (&attributes)[count],
                                                           char const* why) {
    std::array<Attribute, count + 4> all = {};
    std::copy(attributes, attributes + count, all.begin());
    std::ranges::copy(UnusedSizes(why), all.begin() + count);
    return all;
}

} // namespace CommonAttributes

} // namespace GUI
