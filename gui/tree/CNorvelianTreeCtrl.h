#pragma once

#include "gui/platform/DragData_PC.h"
#include "gui/shell/CNorvelianScrollArea.h"
#include "gui/tree/TreeWnd.h"

#include <functional>

class QDropEvent;

namespace GUI {

class DropDataObject;

/// The window of a tree: what the platform sends goes to `TreeWnd`, which paints and decides.
class CNorvelianTreeCtrl : public CNorvelianScrollArea, public TreeWnd {
public:
    explicit CNorvelianTreeCtrl(QWidget* parent);
    ~CNorvelianTreeCtrl() override;

    /// What its element has to do with drags.
    struct Drags {
        /// What is dragged out beside the texts and the colour of the nodes.
        std::function<void(DragContent&)> fill;
        std::function<bool(DropDataObject const&, TreeDropPlace const&)> take;
        bool moves = false;
        bool leaves = false;
        bool takes = false;
    };
    void SetDragging(Drags drags);
    /// What would be dragged now.
    DragContent GetDragContent() const;
    /// Runs a command as an event of the element.
    void RunCommand(std::function<void(TreeWnd&)> const& command);

protected:
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void OnPaintPart(PlatformIndependentDeviceContext& context, QRect const& part) override;
    void OnViewportSize(long width, long height) override { OnSize(width, height); }
    bool OnMouse(QEvent& event) override;
    bool IsOwnKey(QKeyEvent const& event) const override;
    void OnEnabled(bool enabled) override { SetEnabled(enabled); }
    void OnFocusChange(bool focused) override { OnFocus(focused); }
    void OnScrolled() override;
    bool OnEditorKey(QKeyEvent& event) override;
    void OnEditorLeft() override { EndRename(true); }

    void RepaintBox(GridBox const& box) override;
    void ScrollPixels(GridBox const& area, long dx, long dy) override;
    void SetScrollBars(long row, long lastRow, long rowPage, long x, long lastX, long xPage) override;
    void ShowEditor(GridBox const& box, Utilities::String const& text) override;
    Utilities::String GetEditorText() const override;
    void MoveEditor(GridBox const& box) override;
    void HideEditor() override { HideField(); }
    void SetCursor(GridCursor cursor) override;
    void SetClipboard(Utilities::String const& text) override;
    std::string Fold(Utilities::String const& text) const override;
    long MeasureText(Utilities::String const& text) const override;
    void WaitForRename() override;
    void StartDrag() override;
    void TellCurrentRow(long row) override;
    void TellRowChange(long row) override;
    void TellRowsChanged() override;

private:
    QFont GetFont() const;
    bool ShowNodeTip(QEvent& event);
    void OnDragMove(QDropEvent& event);
    void OnDropped(QDropEvent& event);
    bool IsOwnDrag(QDropEvent const& event) const;

    Drags drags_;
    /// Grows with each click, so that a rename that waits knows that another one came.
    unsigned clicks_ = 0;
};

} // namespace GUI
