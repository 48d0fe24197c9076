#include "gui/grid/controls/CGXControl.h"

#include "core/base/Exceptions.h"
#include "gui/grid/model/GridNumber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace GUI {

using Utilities::String;

namespace {

using Kind = CGXControl::Reaction::Kind;

RGBVector TextColorOf(GridDrawing const& drawing, GridCellView const& cell) {
    return cell.enabled ? cell.style.textColor.value_or(drawing.GetColors().ink)
                        : drawing.GetColors().disabled;
}

/// Numbers line up at their last digit unless the style says otherwise.
GridAlignment AlignmentOf(CGXStyle const& style) {
    return style.alignment.value_or(style.IsNumber() ? GridAlignment::Right : GridAlignment::Left);
}

class StaticControl : public CGXControl {
public:
    void Draw(GridDrawing& drawing, GridCellView const& cell) const override {
        DrawIn(drawing, cell, cell.box);
    }

protected:
    static void DrawIn(GridDrawing& drawing, GridCellView const& cell, GridBox const& box) {
        if (cell.text.Length() == 0) return;
        if (cell.style.IsNumber())
            drawing.Text(box, cell.style, ShowGridNumber(cell.text, drawing.GetDecimalSign(), true),
                         TextColorOf(drawing, cell), AlignmentOf(cell.style));
        else
            drawing.Text(box, cell.style, cell.text, TextColorOf(drawing, cell), AlignmentOf(cell.style));
    }
};

/// A click into the current cell begins to edit it.
class EditControl : public StaticControl {
public:
    Reaction Click(GridCellView const& cell, long /*x*/, long /*y*/) const override { return Edit(cell); }
};

class CheckControl : public CGXControl {
public:
    void Draw(GridDrawing& drawing, GridCellView const& cell) const override {
        GridBox const box = GetSquare(cell.box);
        if (box.IsEmpty()) return;
        drawing.CheckBox(box,
                         IsGridCellChecked(cell.text) ? GridDrawing::Mark::Tick : GridDrawing::Mark::None,
                         TextColorOf(drawing, cell), cell.pressed);
    }
    Reaction Click(GridCellView const& cell, long x, long y) const override {
        return GetSquare(cell.box).Contains(x, y) ? Press(cell) : Reaction();
    }
    Reaction Press(GridCellView const& cell) const override {
        if (cell.style.IsReadOnly()) return {};
        return {Kind::Set, IsGridCellChecked(cell.text) ? "No" : "Yes"};
    }
    Reaction Edit(GridCellView const& /*cell*/) const override { return {}; }
    Accessible::Role GetRole() const override { return Accessible::Role::CheckBox; }

private:
    static GridBox GetSquare(GridBox const& cell) {
        constexpr long side = GridDrawing::checkBoxSide;
        long const left = cell.left + (cell.GetWidth() - side) / 2;
        long const top = cell.top + (cell.GetHeight() - side) / 2;
        return cell.GetWidth() < side || cell.GetHeight() < side
                   ? GridBox()
                   : GridBox{left, top, left + side, top + side};
    }
};

class ChoiceControl : public StaticControl {
public:
    void Draw(GridDrawing& drawing, GridCellView const& cell) const override {
        GridBox text = cell.box;
        text.right -= arrowWidth;
        DrawIn(drawing, cell, text);
        if (cell.style.IsReadOnly() || cell.box.GetWidth() < 2 * arrowWidth) return;
        RGBVector const ink = TextColorOf(drawing, cell);
        long const x = cell.box.right - arrowWidth / 2;
        long const y = (cell.box.top + cell.box.bottom) / 2 - 2;
        for (long i = 0; i < 4; ++i) drawing.Line(x - 4 + i, y + i, x + 3 - i, y + i, ink);
    }
    Reaction Click(GridCellView const& cell, long x, long /*y*/) const override {
        return x >= cell.box.right - arrowWidth ? Press(cell) : Reaction();
    }
    Reaction Press(GridCellView const& cell) const override { return Edit(cell); }
    Reaction Edit(GridCellView const& cell) const override {
        return cell.style.IsReadOnly() ? Reaction() : Reaction{Kind::Choose, {}};
    }

private:
    static constexpr long arrowWidth = 18;
};

class PatchControl : public CGXControl {
public:
    void Draw(GridDrawing& drawing, GridCellView const& cell) const override {
        auto const color = ReadGridColor(cell.text);
        if (!color) return;
        drawing.Fill(cell.box, drawing.GetColors().surround);
        // What is too small for a surround is left with less of it.
        long const room = std::min(cell.box.GetWidth(), cell.box.GetHeight());
        drawing.Fill(cell.box.Inset(std::clamp((room - 6) / 2, 0L, surroundWidth)), *color);
    }
    Reaction Edit(GridCellView const& /*cell*/) const override { return {}; }
    Accessible::Role GetRole() const override { return Accessible::Role::Graphic; }
    bool ShowsColor() const override { return true; }

private:
    static constexpr long surroundWidth = 5;
};

/// From the aim to the value, over the band of the tolerance, whose limits are marked; the number beside it.
class BarControl : public StaticControl {
public:
    void Draw(GridDrawing& drawing, GridCellView const& cell) const override {
        auto const& colors = drawing.GetColors();
        GridBarScale const scale = cell.style.bar.value_or(GridBarScale());
        GridBox number = cell.box;
        number.left = cell.box.right - std::min(cell.box.GetWidth() / 2, numberWidth);
        GridBox field = cell.box.Inset(3);
        field.right = number.left;
        auto const value = ReadGridNumber(cell.text);
        if (!(scale.maximum > scale.minimum) || field.IsEmpty()) return DrawIn(drawing, cell, cell.box);
        auto const place = [&](double at) {
            double const share = (at - scale.minimum) / (scale.maximum - scale.minimum);
            return field.left +
                   static_cast<long>(std::clamp(share, 0.0, 1.0) * static_cast<double>(field.GetWidth() - 1));
        };
        long const low = place(scale.aim - scale.tolerance);
        long const high = place(scale.aim + scale.tolerance) + 1;
        if (scale.tolerance > 0) drawing.Fill({low, field.top, high, field.bottom}, colors.band);
        if (value) {
            auto const [left, right] = std::minmax({place(scale.aim), place(*value)});
            long const inset = std::min(3L, field.GetHeight() / 3);
            drawing.Fill({left, field.top + inset, right + 1, field.bottom - inset},
                         cell.enabled ? colors.bar : colors.disabled);
        }
        if (scale.tolerance > 0) {
            drawing.Line(low, field.top, low, field.bottom, colors.ink);
            drawing.Line(high - 1, field.top, high - 1, field.bottom, colors.ink);
        }
        DrawIn(drawing, cell, number);
    }

private:
    static constexpr long numberWidth = 52;
};

class ButtonControl : public CGXControl {
public:
    void Draw(GridDrawing& drawing, GridCellView const& cell) const override {
        auto const& colors = drawing.GetColors();
        GridBox const box = cell.box.Inset(2);
        drawing.Fill(box, cell.pressed ? colors.band : colors.header);
        drawing.Frame(box, cell.enabled ? colors.bar : colors.disabled);
        drawing.Text(box, cell.style, cell.text, TextColorOf(drawing, cell), GridAlignment::Centre);
    }
    Reaction Click(GridCellView const& cell, long x, long y) const override {
        return cell.box.Inset(2).Contains(x, y) ? Press(cell) : Reaction();
    }
    Reaction Press(GridCellView const& /*cell*/) const override { return {Kind::Fire, {}}; }
    Reaction Edit(GridCellView const& /*cell*/) const override { return {}; }
    Accessible::Role GetRole() const override { return Accessible::Role::Button; }
};

/// Numbers with ";" between, at even distances from the left to the right: a spectrum in a row.
class CurveControl : public CGXControl {
public:
    void Draw(GridDrawing& drawing, GridCellView const& cell) const override {
        GridBox const field = cell.box.Inset(2);
        long const count = cell.text.GetTokenCount(';');
        GridBarScale const scale = cell.style.bar.value_or(GridBarScale());
        if (count < 2 || field.IsEmpty() || !(scale.maximum > scale.minimum)) return;
        auto& context = drawing.GetContext();
        context.SetPen(TextColorOf(drawing, cell), 1, PlatformIndependentDeviceContext::solid);
        std::string_view rest = cell.text.GetStdString();
        bool begun = false;
        for (long i = 0; i < count; ++i) {
            std::string_view const token = rest.substr(0, rest.find(';'));
            rest.remove_prefix(std::min(token.size() + 1, rest.size()));
            auto const value = ReadGridNumber(String(token));
            // A number that is missing leaves a gap.
            if (!value) {
                begun = false;
                continue;
            }
            double const share =
                std::clamp((*value - scale.minimum) / (scale.maximum - scale.minimum), 0.0, 1.0);
            auto const x = static_cast<short>(field.left + i * (field.GetWidth() - 1) / (count - 1));
            auto const y = static_cast<short>(
                field.bottom - 1 - std::lround(share * static_cast<double>(field.GetHeight() - 1)));
            if (begun)
                context.LineTo(x, y);
            else
                context.MoveTo(x, y);
            begun = true;
        }
    }
    Reaction Edit(GridCellView const& /*cell*/) const override { return {}; }
    Accessible::Role GetRole() const override { return Accessible::Role::Graphic; }
    /// Nobody wants to hear all of its numbers.
    String GetSpokenText(GridCellView const& /*cell*/) const override { return {}; }
};

} // namespace

CGXControl const& CGXControl::Of(GridControl kind) {
    static StaticControl const plain;
    static EditControl const edit;
    static CheckControl const check;
    static ChoiceControl const choice;
    static PatchControl const patch;
    static BarControl const bar;
    static ButtonControl const button;
    static CurveControl const curve;
    static std::array<CGXControl const*, 8> const all{&plain, &edit, &check,  &choice,
                                                      &patch, &bar,  &button, &curve};
    return *all[static_cast<std::size_t>(kind)];
}

CGXControl::Reaction CGXControl::Click(GridCellView const& /*cell*/, long /*x*/, long /*y*/) const {
    return {};
}

CGXControl::Reaction CGXControl::Press(GridCellView const& /*cell*/) const { return {}; }

CGXControl::Reaction CGXControl::Edit(GridCellView const& cell) const {
    return cell.style.IsReadOnly() ? Reaction() : Reaction{Kind::Edit, {}};
}

bool IsGridCellChecked(String const& text) { return text == "Yes"; }

std::optional<RGBVector> ReadGridColor(String const& text) {
    if (text.Length() == 0) return {};
    try {
        return RGBVector(text);
    } catch (Norvelian::Utilities::Exceptions::OutOfRangeException const&) {
        return {};
    }
}

} // namespace GUI
