#pragma once

#include "core/base/String.h"
#include "gui/elements/colour/RGBVector.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace GUI {

/// How a cell is drawn and what a click on it does; see `CGXControl`.
enum class GridControl : std::uint8_t { Static, Edit, Check, Choice, Patch, Bar, Button, Curve };

enum class GridAlignment : std::uint8_t { Left, Centre, Right };

/// The scale of a cell that shows its number as a bar, or its numbers as a curve: from `minimum` to
/// `maximum`, of a bar with a band of `tolerance` to both sides of `aim`.
struct GridBarScale {
    double minimum = 0;
    double maximum = 1;
    double aim = 0;
    double tolerance = 0;

    bool operator==(GridBarScale const&) const = default;
};

/// What a cell, a row, a column or a table says about how its cells look and behave. What isn't set is left
/// to the next in the order cell, row, column, table.
class CGXStyle {
public:
    /// Also a cell's text can be set through a style; it is no part of how the cell looks.
    std::optional<Utilities::String> value;
    std::optional<RGBVector> interior;
    std::optional<RGBVector> textColor;
    std::optional<Utilities::String> fontName;
    /// As heights of the device context: points at 96 an inch, pixels if negative.
    std::optional<short> fontSize;
    std::optional<bool> bold;
    std::optional<bool> readOnly;
    /// The cell holds a number: its text has "." and "-" as signs, and is shown and exchanged with other
    /// programs with the signs of the user's language.
    std::optional<bool> number;
    std::optional<GridControl> control;
    std::optional<GridAlignment> alignment;
    /// What a choice offers.
    std::optional<std::vector<Utilities::String>> choices;
    std::optional<GridBarScale> bar;

    /// Takes over what the other one sets.
    void Merge(CGXStyle const& over);
    /// Nothing but perhaps a value is set.
    bool IsPlain() const;
    std::size_t GetHash() const;
    bool operator==(CGXStyle const&) const = default;

    /// @name What a merged style comes to
    /// @{
    bool IsReadOnly() const { return readOnly.value_or(false); }
    bool IsNumber() const { return number.value_or(false); }
    GridControl GetControl() const { return control.value_or(GridControl::Static); }
    GridAlignment GetAlignment() const { return alignment.value_or(GridAlignment::Left); }
    RGBVector GetTextColor() const { return textColor.value_or(RGBVector()); }
    short GetFontSize() const { return fontSize.value_or(smallestFont); }
    /// @}

    static constexpr short smallestFont = 8;
};

/// White or black, whichever can be read on a background.
RGBVector GetContrast(RGBVector const& background);

} // namespace GUI
