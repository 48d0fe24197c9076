#pragma once

#include "gui/grid/view/CGXGridWnd.h"

#include <QAbstractScrollArea>
#include <QPointer>
#include <functional>

class QLineEdit;

namespace GUI {

class GUIElement;

/// The window of a table: what the platform sends goes to `CGXGridWnd`, which paints and decides.
class CNorvelianGridCtrl : public QAbstractScrollArea, public CGXGridWnd {
public:
    explicit CNorvelianGridCtrl(QWidget* parent);
    ~CNorvelianGridCtrl() override;

    /// Whose events these are; null once it is released.
    void SetElement(GUIElement const* element) { element_ = element; }
    /// Runs a command as an event of the element.
    void RunCommand(std::function<void(CGXGridWnd&)> const& command);

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

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
    void SetClipboard(std::string const& text, std::string const& html) override;
    void GetClipboard(std::string& text, std::string& html) const override;
    void TellCurrentCell() override;
    void TellCellChange(GridPlace const& place) override;

private:
    /// Runs a handler as an event of the element.
    template <class Handler> void Run(Handler handler);
    /// Whether a logical pixel is a whole number of the screen's; not at a scale of 1.5.
    bool HasWholePixels() const;
    void PaintViewport(QPaintEvent const& event);
    bool OnMouse(QEvent& event);
    bool PassKey(QKeyEvent& event);
    bool OnEditorKey(QKeyEvent& event);

    GUIElement const* element_ = nullptr;
    QPointer<QLineEdit> editor_;
    bool settingBars_ = false;
};

} // namespace GUI
