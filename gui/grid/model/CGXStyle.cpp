#include "gui/grid/model/CGXStyle.h"

#include <cmath>
#include <functional>
#include <string_view>

namespace GUI {

namespace {

template <class T> void Take(std::optional<T>& field, std::optional<T> const& over) {
    if (over) field = over;
}

class Hash {
public:
    void Add(std::size_t value) { sum_ = (sum_ ^ value) * 0x9E3779B97F4A7C15U + (sum_ >> 29U); }
    void Add(RGBVector const& color) {
        Add((std::size_t{color.GetRed()} << 16U) + (std::size_t{color.GetGreen()} << 8U) + color.GetBlue());
    }
    void Add(Utilities::String const& text) { Add(std::hash<std::string>()(text.GetStdString())); }
    template <class T> void Add(std::optional<T> const& field) {
        Add(std::size_t{field.has_value()});
        if (field) Add(*field);
    }
    std::size_t Get() const { return sum_; }

private:
    std::size_t sum_ = 0;
};

} // namespace

void CGXStyle::Merge(CGXStyle const& over) {
    Take(value, over.value);
    Take(interior, over.interior);
    Take(textColor, over.textColor);
    Take(fontName, over.fontName);
    Take(fontSize, over.fontSize);
    Take(bold, over.bold);
    Take(readOnly, over.readOnly);
    Take(number, over.number);
    Take(control, over.control);
    Take(alignment, over.alignment);
    Take(choices, over.choices);
    Take(bar, over.bar);
}

bool CGXStyle::IsPlain() const {
    CGXStyle plain;
    plain.value = value;
    return *this == plain;
}

std::size_t CGXStyle::GetHash() const {
    // Choices and scales rarely are what two styles differ in.
    Hash hash;
    hash.Add(interior);
    hash.Add(textColor);
    hash.Add(fontName);
    hash.Add(std::size_t(static_cast<unsigned short>(fontSize.value_or(0))));
    hash.Add(std::size_t{bold.value_or(false)} * 2 + std::size_t{readOnly.value_or(false)});
    hash.Add(static_cast<std::size_t>(control.value_or(GridControl::Static)) * 4 +
             static_cast<std::size_t>(alignment.value_or(GridAlignment::Left)));
    return hash.Get();
}

RGBVector GetContrast(RGBVector const& background) {
    long const red = background.GetRed();
    long const green = background.GetGreen();
    long const blue = background.GetBlue();
    // Blue counts a third, as a whole number.
    constexpr double brightest = 224;
    long const blueShare = (blue * blue) / 3;
    double const value = std::sqrt(static_cast<double>(red * red + green * green + blueShare));
    RGBVector const contrast = value <= brightest ? RGBVector(255, 255, 255) : RGBVector(0, 0, 0);
    // The grounds of a theme have its ink.
    return background.GetRole() == ThemeRole::None ? contrast : RGBVector(ThemeRole::Ink, contrast);
}

} // namespace GUI
