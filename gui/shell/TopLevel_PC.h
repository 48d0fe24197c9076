#pragma once

#include "gui/elements/GUIElement.h"
#include "gui/shell/CNorvelianSurface.h"
#include "gui/shell/WindowAttributes.h"

#include <QPointer>
#include <QWidget>
#include <memory>
#include <vector>

namespace GUI {

class Menu;
class Menu_PC;

/// What the platform windows of "Window" and "Dialog" have in common, as a member of the element: the Qt
/// window, the surface that shows the elements, and the bars above and below it. The element decides.
///
/// All sizes are those of the client area, which the surface covers; bars are beside it.
class TopLevel : public SurfaceBackdrop {
public:
    explicit TopLevel(GUIElement& element) : element_(element) {}
    ~TopLevel() override { Release(); }
    TopLevel(TopLevel const&) = delete;
    TopLevel& operator=(TopLevel const&) = delete;

    /// Takes the window over and gives it its surface. Throws `RuntimeException` with `failure` if its
    /// identity can't be made.
    Utilities::SmartPointer<PlatformIndependentWindowID> Take(std::unique_ptr<QWidget> window,
                                                              char const* failure);
    /// Null before, and once the element is released or Qt has deleted the window.
    QWidget* GetWindow() const { return window_; }
    CNorvelianSurface* GetSurface() const { return surface_; }
    /// Paints it whole before it returns; see `CNorvelianSurface::RepaintNow`.
    void RepaintAll() const;
    /// Hides the window at once; Qt deletes it when it is done with it.
    void Release();

    /// The translation of a key, shown as it is.
    void SetTitle(Utilities::String const& key);
    /// A bar over the whole width, as high as it wants to be: a menu bar or tool bar at `Qt::TopEdge`, a
    /// status line at `Qt::BottomEdge`. Later bars are nearer to the client area. The window takes it over.
    void AddBar(QWidget& bar, Qt::Edge edge);
    /// Shows a menu as the window's bar, in place of a former one. The item tree must be.
    void SetMenu(Menu_PC& menu);
    /// Shows the menu that is a child of the window, if there is one, before the window is laid out; that of
    /// the main window gives the hot keys.
    void ShowDescribedMenu();
    /// The first menu among the children; null if there is none.
    static Menu* FindMenu(GUIElement const& window);
    /// What fills the client area: the first child that is no menu. Null if there is none.
    static Utilities::SmartPointer<GUIElement> FindContent(GUIElement const& window);
    /// Places the bars and the surface in the window's present size.
    void LayOutBars();

    QSize GetClientSize() const;
    void Resize(QSize const& client);
    void SetFixedSize(QSize const& client);
    /// The limits for the user's resizing, capped by the screen.
    void ApplyLimits(SizeRange const& range, bool resizeable);
    /// Moves the window to a place on some screen; one that no screen shows any more is left alone.
    void MoveTo(WindowPlace const& place);
    /// Gives the first child the client area, and places all windows in it.
    void LayOut();

    /// Takes "Theme" and "Surround" from the description, or from the data source where it gives them. An
    /// unknown theme throws `OutOfRangeException`.
    void ReadTheme(DescriptionTree const& description);
    /// Asks the data source again.
    void UpdateTheme();
    /// With a theme: the next surround, of which the data source is told.
    void TakeNextSurround();

    void PaintBackground(PlatformIndependentDeviceContext& context) override;
    void PaintDecorators(PlatformIndependentDeviceContext& context) override;
    void OnOuterThemeChanged() override { ApplyTheme(); }
    void SetBackgroundBitmap(Utilities::String const& imageName) { backgroundBitmap_ = imageName; }

    /// The main window was asked to close: true if the application lets it, and is ending.
    static bool CloseMainWindow();
    /// A key that no element took: F1 shows help, F7 takes the next surround. False for any other.
    bool TakeKey(QKeyEvent const& event);
    /// Shows the help of the element under the mouse, of the last dialog first, or with Shift that of the
    /// first dialog.
    static void ShowHelp(bool shift);

private:
    struct Bar {
        QPointer<QWidget> widget;
        Qt::Edge edge;
    };
    void EnterBar(QWidget& bar, Qt::Edge edge);
    /// What the bars add to the client area's height.
    int GetBarHeight() const;
    void ApplyTheme();

    GUIElement& element_;
    QPointer<QWidget> window_;
    QPointer<CNorvelianSurface> surface_;
    std::vector<Bar> bars_;
    QPointer<QWidget> menuBar_;
    Utilities::String backgroundBitmap_;
    Utilities::String theme_;
    Utilities::String surround_;
};

} // namespace GUI
