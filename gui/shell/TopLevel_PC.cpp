#include "gui/shell/TopLevel_PC.h"

#include "gui/elements/Application.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <algorithm>

namespace GUI::TopLevel {

using Utilities::String;

namespace {

QWidget* WidgetOf(GUIElement& element) {
    auto const identity = element.GetWindowID();
    return identity.IsNull() ? nullptr : PlatformIndependentWindowID_PC::WindowOf(*identity);
}

bool FindHelpAtMouse(GUIElement& dialog, String& file, unsigned long& topic) {
    QWidget const* const widget = WidgetOf(dialog);
    if (!widget) return false;
    QPoint const position = widget->mapFromGlobal(QCursor::pos());
    // A place left of or above the dialog is a large number, and in none of its elements.
    return dialog.GetHelpInfo(file, topic, static_cast<unsigned long>(position.x()),
                              static_cast<unsigned long>(position.y()));
}

/// All screens together, since a window can be moved from one to the other. Offscreen there is none
/// that a window could exceed.
QSize DesktopSize(QWidget const& window) {
    if (QGuiApplication::platformName() == "offscreen") return {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
    return window.screen()->virtualSize();
}

} // namespace

void PaintDecorators(QWidget& window, GUIElement const& element) {
    PlatformIndependentDeviceContext_PC context(window);
    element.OnPaintWindowDecorators(context, element);
}

void ShowHelp(bool shift) {
    Application& application = Application::Instance();
    GUIElement* const first = application.GetFirstDialog();
    GUIElement* const last = application.GetLastDialog();
    String file;
    unsigned long topic = 0;
    bool found = false;
    if (shift)
        found = first && first->GetHelpInfo(file, topic, 0, 0);
    else
        found =
            (last && FindHelpAtMouse(*last, file, topic)) || (first && FindHelpAtMouse(*first, file, topic));
    if (found && file.Length() != 0) application.ShowHelp(file, topic, 1);
}

void ApplyLimits(QWidget& window, SizeRange const& range, bool resizeable) {
    if (!resizeable) {
        window.setFixedSize(window.size());
        return;
    }
    auto const bounded = [](unsigned long pixels) {
        return static_cast<int>(std::min<unsigned long>(pixels, QWIDGETSIZE_MAX));
    };
    QSize const smallest(bounded(range.minimalWidth), bounded(range.minimalHeight));
    QSize const largest(bounded(range.maximalWidth), bounded(range.maximalHeight));
    window.setMinimumSize(smallest);
    window.setMaximumSize(largest.boundedTo(DesktopSize(window)).expandedTo(smallest));
}

bool CloseMainWindow() {
    Application& application = Application::Instance();
    if (!application.MayClose()) return false;
    application.SetMainWindow(nullptr);
    application.Quit(0);
    return true;
}

void MoveTo(QWidget& window, WindowPlace const& place) {
    // Enough of the title must show to take hold of the window.
    QPoint const handle(place.x + 40, place.y + 10);
    auto const screens = QGuiApplication::screens();
    bool const visible = std::any_of(screens.begin(), screens.end(), [handle](QScreen const* screen) {
        return screen->availableGeometry().contains(handle);
    });
    if (visible) window.move(place.x, place.y);
}

} // namespace GUI::TopLevel
