#include "gui/grid/GridCellMap.h"

#include "core/base/Exceptions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <string_view>

namespace GUI {

using Norvelian::Utilities::Exceptions::TraceableException;
using Utilities::Anything;
using Utilities::String;

namespace {

template <class T, class Read>
void Take(std::optional<T>& field, AttributeMap const& cell, char const* key, Read read) {
    Anything const* const value = cell.FindValue(key);
    if (!value || !value->IsValid()) return;
    try {
        field = read(*value);
    } catch (TraceableException const&) {
        // One faulty key doesn't cost the others.
    }
}

bool IsYes(Anything const& value) { return value.GetBool(); }
String ToText(Anything const& value) { return value.GetString(); }
RGBVector ToColor(Anything const& value) { return RGBVector(value); }

constexpr std::array<std::string_view, 8> controlNames{"Static", "Edit", "Check",  "Choice",
                                                       "Patch",  "Bar",  "Button", "Curve"};
constexpr std::array<std::string_view, 3> alignmentNames{"Left", "Centre", "Right"};

template <class T, class Names>
void TakeName(std::optional<T>& field, AttributeMap const& cell, char const* key, Names const& names) {
    std::optional<String> name;
    Take(name, cell, key, ToText);
    if (!name) return;
    auto const found = std::ranges::find(names, name->GetStdString());
    if (found != names.end()) field = static_cast<T>(std::distance(names.begin(), found));
}

std::vector<String> ToTexts(Anything const& value) {
    std::vector<String> texts;
    for (Anything const& text : value.GetVectorOfAnythings()) texts.push_back(ToGridText(text));
    return texts;
}

std::optional<GridBarScale> ReadScale(AttributeMap const& cell) {
    GridBarScale scale;
    bool given = false;
    std::pair<char const*, double*> const fields[] = {{"Minimum", &scale.minimum},
                                                      {"Maximum", &scale.maximum},
                                                      {"Aim", &scale.aim},
                                                      {"Tolerance", &scale.tolerance}};
    for (auto const& [key, field] : fields) {
        std::optional<double> number;
        Take(number, cell, key, [](Anything const& value) { return value.GetDouble(); });
        if (number) *field = *number;
        given = given || number.has_value();
    }
    return given ? std::optional(scale) : std::nullopt;
}

} // namespace

String ToGridText(Anything const& value) {
    switch (value.GetKind()) {
    case Anything::Kind::String:
        return value.GetString();
    case Anything::Kind::Bool:
        return value.GetBool() ? "Yes" : "No";
    case Anything::Kind::Short:
    case Anything::Kind::Long:
        return String(value.GetLong());
    case Anything::Kind::Double: {
        std::array<char, 32> digits{};
        auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), value.GetDouble()).ptr;
        return String(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
    }
    default:
        return {};
    }
}

CGXStyle ReadGridCell(AttributeMap const& cell) {
    CGXStyle style;
    if (Anything const* const value = cell.FindValue("Value"); value && value->IsValid())
        style.value = ToGridText(*value);
    // Most cells have nothing but a text.
    if (cell.GetSize() == (style.value ? 1U : 0U)) return style;
    Take(style.interior, cell, "Background", ToColor);
    Take(style.textColor, cell, "FontColor", ToColor);
    if (style.interior && !style.textColor) style.textColor = GetContrast(*style.interior);
    Take(style.fontName, cell, "FontName", ToText);
    Take(style.fontSize, cell, "FontSize", [](Anything const& value) { return value.GetShort(); });
    Take(style.bold, cell, "Bold", IsYes);
    Take(style.readOnly, cell, "ReadOnly", IsYes);
    Take(style.number, cell, "Number", IsYes);
    TakeName(style.control, cell, "Control", controlNames);
    TakeName(style.alignment, cell, "Alignment", alignmentNames);
    Take(style.choices, cell, "Choices", ToTexts);
    style.bar = ReadScale(cell);
    return style;
}

CGXStyle ReadGridCell(Anything const& cell) {
    if (cell.IsOfTypeMap()) return ReadGridCell(cell.GetMapOfAnythings());
    CGXStyle style;
    if (cell.IsValid()) style.value = ToGridText(cell);
    return style;
}

AttributeMap WriteGridCell(CGXStyle const& style) {
    AttributeMap cell;
    if (style.value) cell["Value"] = *style.value;
    if (style.interior) cell["Background"] = style.interior->GetAnything();
    if (style.textColor) cell["FontColor"] = style.textColor->GetAnything();
    if (style.fontName) cell["FontName"] = *style.fontName;
    if (style.fontSize) cell["FontSize"] = *style.fontSize;
    if (style.bold) cell["Bold"] = *style.bold ? "Yes" : "No";
    return cell;
}

} // namespace GUI
