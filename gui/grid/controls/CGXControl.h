#pragma once

#include "gui/elements/Accessible.h"
#include "gui/grid/controls/GridDrawing.h"

#include <optional>

namespace GUI {

/// A cell on the screen, as a control draws it and is clicked.
struct GridCellView {
    GridBox box;
    CGXStyle const& style;
    Utilities::String const& text;
    bool pressed = false;
    bool enabled = true;
};

/// How the cells of one kind are drawn, and what the user can do with them. Controls know neither table nor
/// window: one object draws all cells of its kind.
class CGXControl {
public:
    /// What a click, or the key that stands for it, brings about.
    struct Reaction {
        enum class Kind : std::uint8_t { None, Edit, Choose, Set, Fire };
        Kind kind = Kind::None;
        /// The new text of a cell that is set.
        Utilities::String text;
    };

    CGXControl() = default;
    CGXControl(CGXControl const&) = delete;
    CGXControl& operator=(CGXControl const&) = delete;
    virtual ~CGXControl() = default;

    static CGXControl const& Of(GridControl kind);

    /// The background is there already.
    virtual void Draw(GridDrawing& drawing, GridCellView const& cell) const = 0;
    /// A click at a place of the table's window.
    virtual Reaction Click(GridCellView const& cell, long x, long y) const;
    /// The space bar.
    virtual Reaction Press(GridCellView const& cell) const;
    /// F2, a double click, or typing.
    virtual Reaction Edit(GridCellView const& cell) const;
    virtual Accessible::Role GetRole() const { return Accessible::Role::Text; }
    /// Whether what it shows is a measured colour, which nothing may cover or tint.
    virtual bool ShowsColor() const { return false; }
    /// What assistive technology reads.
    virtual Utilities::String GetSpokenText(GridCellView const& cell) const { return cell.text; }
};

/// Whether a check cell is ticked: its text is "Yes".
bool IsGridCellChecked(Utilities::String const& text);

/// The colour that a patch cell shows: its text is three numbers with commas.
std::optional<RGBVector> ReadGridColor(Utilities::String const& text);

} // namespace GUI
