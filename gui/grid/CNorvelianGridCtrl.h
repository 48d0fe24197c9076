#pragma once

#include "gui/grid/view/CGXGridWnd.h"
#include "gui/platform/DragData_PC.h"
#include "gui/shell/CNorvelianScrollArea.h"

#include <functional>
#include <utility>

namespace GUI {

/// The window of a table: what the platform sends goes to `CGXGridWnd`, which paints and decides.
class CNorvelianGridCtrl : public CNorvelianScrollArea, public CGXGridWnd {
public:
    explicit CNorvelianGridCtrl(QWidget* parent);
    ~CNorvelianGridCtrl() override;

    /// What its element adds to what is dragged out.
    void SetDragContent(std::function<void(DragContent&)> fill) { fillDrag_ = std::move(fill); }
    /// Runs a command as an event of the element.
    void RunCommand(std::function<void(CGXGridWnd&)> const& command);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void OnPaintPart(PlatformIndependentDeviceContext& context, QRect const& part) override;
    void OnViewportSize(long width, long height) override { OnSize(width, height); }
    bool OnMouse(QEvent& event) override;
    bool IsOwnKey(QKeyEvent const& event) const override;
    void OnEnabled(bool enabled) override { SetEnabled(enabled); }
    void OnFocusChange(bool focused) override { OnFocus(focused); }
    void OnScrolled() override;
    bool OnEditorKey(QKeyEvent& event) override;
    void OnEditorLeft() override { EndEditing(true); }

    void RepaintBox(GridBox const& box) override;
    void ScrollPixels(GridBox const& area, long dx, long dy) override;
    void SetScrollBars(long row, long lastRow, long rowPage, long x, long lastX, long xPage) override;
    void ShowEditor(GridBox const& box, Utilities::String const& text, CGXStyle const& style,
                    bool selectAll) override;
    Utilities::String GetEditorText() const override;
    void MoveEditor(GridBox const& box) override;
    void HideEditor() override;
    void ShowChoices(GridBox const& box, std::vector<Utilities::String> const& choices,
                     Utilities::String const& current) override;
    void SetCursor(GridCursor cursor) override;
    long MeasureText(Utilities::String const& text, CGXStyle const& style) const override;
    void StartDrag(std::string const& text, std::string const& html,
                   std::optional<RGBVector> const& color) override;
    void SetClipboard(std::string const& text, std::string const& html) override;
    void GetClipboard(std::string& text, std::string& html) const override;
    void TellCurrentCell() override;
    void TellCellChange(GridPlace const& place) override;

private:
    bool PassKey(QKeyEvent& event);

    std::function<void(DragContent&)> fillDrag_;
};

} // namespace GUI
