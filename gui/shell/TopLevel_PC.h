#pragma once

#include "gui/elements/GUIElement.h"
#include "gui/shell/WindowAttributes.h"

#include <QEvent>
#include <QPainter>
#include <QWidget>

namespace GUI {

/// What the platform windows of "Window" and "Dialog" have in common. All of it is the platform's side:
/// the element decides.
namespace TopLevel {

/// Lets the decorators of a window's elements draw over what it has painted.
void PaintDecorators(QWidget& window, GUIElement const& element);
/// Shows the help of the element under the mouse, of the last dialog first, or with Shift that of the
/// first dialog.
void ShowHelp(bool shift);
/// The limits for the user's resizing, capped by the screen.
void ApplyLimits(QWidget& window, SizeRange const& range, bool resizeable);
/// The main window was asked to close: true if the application lets it, and is ending.
bool CloseMainWindow();
/// Moves a window to a place on some screen; one that no screen shows any more is left alone.
void MoveTo(QWidget& window, WindowPlace const& place);

} // namespace TopLevel

} // namespace GUI
