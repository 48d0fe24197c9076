#pragma once

#include "gui/grid/view/CGXGridWnd.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace Tests {

using namespace GUI;
using Utilities::String;

/// A window of 300 by 100 that writes down what is asked of it.
class GridWindow : public CGXGridWnd, public GridObserver {
public:
    GridWindow(long rows, long columns) {
        SetObserver(this);
        SetRowCount(rows);
        SetColCount(columns);
        OnSize(300, 100);
        for (long row = 1; row <= std::min(rows, 100L); ++row)
            for (long column = 1; column <= columns; ++column)
                SetStyleRange(GridRange::Of({row, column}), Value(std::to_string(row * 10 + column)));
        asked.clear();
    }
    static CGXStyle Value(std::string const& text) {
        CGXStyle style;
        style.value = String(text);
        return style;
    }
    std::string At(long row, long column) const { return GetCore().GetText({row, column}); }
    std::string TakeAsked() { return std::exchange(asked, {}); }
    void Press(GridKey key, bool shift = false, bool control = false) { OnKey(key, {shift, control}); }
    std::string Selected() const {
        std::string text;
        for (GridRange const& range : GetSelection().GetRanges())
            text += std::to_string(range.top) + "," + std::to_string(range.left) + "-" +
                    std::to_string(range.bottom) + "," + std::to_string(range.right) + " ";
        return text;
    }

    std::string asked;
    std::string clipboard;
    std::string typed;

    void OnEndEditing(GridPlace const& place) override {
        asked += "edited " + std::to_string(place.row) + "," + std::to_string(place.column) + " ";
    }
    void OnCellsChanged(std::vector<GridPlace> const& cells) override {
        asked += "changed " + std::to_string(cells.size()) + " ";
    }
    void OnPasteRefused(long rows, long columns) override {
        asked += "refused " + std::to_string(rows) + "x" + std::to_string(columns) + " ";
    }

protected:
    void RepaintBox(GridBox const&) override {}
    void ScrollPixels(GridBox const& area, long dx, long dy) override {
        asked +=
            "scroll " + std::to_string(area.top) + " " + std::to_string(dx) + " " + std::to_string(dy) + " ";
    }
    void SetScrollBars(long, long, long, long, long, long) override {}
    void ShowEditor(GridBox const&, String const& text, CGXStyle const&, bool) override { typed = text; }
    String GetEditorText() const override { return String(typed); }
    void MoveEditor(GridBox const&) override {}
    void HideEditor() override {}
    void ShowChoices(GridBox const&, std::vector<String> const&, String const&) override {}
    void SetCursor(GridCursor) override {}
    long MeasureText(String const& text, CGXStyle const&) const override { return 7 * text.Length(); }
    void StartDrag(std::string const& text, std::string const&, std::optional<RGBVector> const&) override {
        asked += "drag " + text;
    }
    void SetClipboard(std::string const& text, std::string const&) override { clipboard = text; }
    void GetClipboard(std::string& text, std::string&) const override { text = clipboard; }
};

} // namespace Tests
