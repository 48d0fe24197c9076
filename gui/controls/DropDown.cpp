#include "gui/controls/DropDown.h"

#include "core/base/Exceptions.h"

namespace GUI {

std::optional<RGBVector> DropDown::ReadColor(AttributeReader const& reader, Attribute const& attribute,
                                             unsigned char missing) {
    if (!reader.Has(attribute)) return std::nullopt;
    auto const text = reader.Text(attribute);
    auto const part = [&](long index) {
        try {
            long const value = text.GetToken(index, ',').GetLong();
            return value >= 0 && value <= 255 ? static_cast<unsigned char>(value) : missing;
        } catch (Norvelian::Utilities::Exceptions::OutOfRangeException const&) {
            return missing;
        }
    };
    return RGBVector(part(0), part(1), part(2));
}

} // namespace GUI
