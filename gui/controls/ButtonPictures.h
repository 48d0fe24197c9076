#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "core/base/String.h"
#include "gui/elements/drawing/Bitmap.h"

#include <array>
#include <cstdint>

namespace GUI {

/// What a native button is showing.
struct ButtonState {
    bool selected = false;
    bool focused = false;
    bool disabled = false;
    /// It has a check state.
    bool toggle = false;
    bool checked = false;
};

/// The pictures of a picture button, of the image service, by the button's caption and a suffix: "U" normal,
/// "D" pressed, "F" with the focus, "X" disabled, and "U2" for a toggle that isn't checked. A picture that
/// is named as the caption itself means a missing normal one; without either the service's picture for
/// unknown names does. The others may be missing.
class ButtonPictures {
public:
    enum class Kind : std::uint8_t { Normal, Selected, Focused, Disabled, SecondNormal };

    void Load(Utilities::String const& caption);
    bool Has(Kind kind) const { return !pictures_[static_cast<std::size_t>(kind)].IsNull(); }
    Bitmap* Get(Kind kind) const { return pictures_[static_cast<std::size_t>(kind)].Get(); }
    /// The picture to be shown.
    Kind Choose(ButtonState const& state) const;

private:
    static constexpr std::size_t count = 5;

    std::array<Utilities::SmartPointer<Bitmap>, count> pictures_;
};

} // namespace GUI
