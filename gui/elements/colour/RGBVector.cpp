#include "gui/elements/colour/RGBVector.h"

#include "gui/elements/colour/Theme.h"

#include <algorithm>
#include <string_view>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Utilities::Anything;
using Utilities::String;

namespace {

constexpr char const* gamutKey = "IsInScreenGamut";
constexpr char const* roleKey = "Role";

unsigned char Channel(long value, String const& source) {
    if (value < 0 || value > 255)
        throw OutOfRangeException("\"" + source.GetStdString() +
                                  "\" is not a colour: a channel is outside 0 to 255");
    return static_cast<unsigned char>(value);
}

} // namespace

RGBVector::RGBVector(Anything const& value) {
    if (value.IsOfTypeMap()) {
        auto const& record = value.GetMapOfAnythings();
        red_ = Channel(record["Red"].GetLong(), "Red");
        green_ = Channel(record["Green"].GetLong(), "Green");
        blue_ = Channel(record["Blue"].GetLong(), "Blue");
        auto const inGamut = record.Find(gamutKey);
        inGamut_ = !inGamut.IsValid() || inGamut.GetValue().GetBool();
        if (auto const role = record.Find(roleKey); role.IsValid()) {
            long const number = role.GetValue().GetLong();
            if (number < 0 || number >= themeRoleCount)
                throw OutOfRangeException("A colour has a role that there isn't");
            role_ = static_cast<ThemeRole>(number);
        }
        return;
    }
    if (!value.IsOfTypeString())
        throw OutOfRangeException("A colour is a record or three numbers with commas");
    *this = RGBVector(value.GetString());
}

RGBVector::RGBVector(String const& text) {
    std::string_view all = text.GetStdString();
    auto const name = all.find_last_of(" ,");
    bool const hasNumbers = name != std::string_view::npos;
    if (auto const role = FindThemeRole(hasNumbers && all[name] == ' ' ? all.substr(name + 1) : all)) {
        if (!hasNumbers) {
            *this = Themed(*role);
            return;
        }
        role_ = *role;
        all = all.substr(0, name);
    }
    auto const first = all.find(',');
    auto const second = first == std::string_view::npos ? first : all.find(',', first + 1);
    bool const isNumbers = all.find_first_not_of("0123456789+-, \t") == std::string_view::npos;
    if (!isNumbers || second == std::string_view::npos || all.find(',', second + 1) != std::string_view::npos)
        throw OutOfRangeException("\"" + text.GetStdString() +
                                  "\" is not a colour: three numbers with commas or the name of a role are");
    red_ = Channel(String(all.substr(0, first)).GetLong(), text);
    green_ = Channel(String(all.substr(first + 1, second - first - 1)).GetLong(), text);
    blue_ = Channel(String(all.substr(second + 1)).GetLong(), text);
}

Anything RGBVector::GetAnything() const {
    Anything::MapOfAnythings record;
    record["Red"] = static_cast<short>(red_);
    record["Green"] = static_cast<short>(green_);
    record["Blue"] = static_cast<short>(blue_);
    record[gamutKey] = inGamut_;
    if (role_ != ThemeRole::None) record[roleKey] = static_cast<short>(role_);
    return {record};
}

void RGBVector::Darker(unsigned short const& percent) {
    role_ = ThemeRole::None;
    int const left = 100 - std::min<int>(percent, 100);
    red_ = static_cast<unsigned char>(red_ * left / 100);
    green_ = static_cast<unsigned char>(green_ * left / 100);
    blue_ = static_cast<unsigned char>(blue_ * left / 100);
}

} // namespace GUI
