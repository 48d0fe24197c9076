#pragma once

#include "gui/elements/application/ElementRendering.h"

#include <QImage>
#include <string>

class QPagedPaintDevice;
class QPainter;
class QRect;

namespace GUI {

class GUIElement;
class Theme;

/// Draws an element, with all panes below it, on another device; see `ElementRendering`.
namespace ElementPicture_PC {

/// The picture itself; null for what can't be drawn. The format plays no part.
QImage Draw(GUIElement& element, ElementRendering const& rendering);
/// Into a box of a painter's coordinates, in the colours of a theme; null for the element's own.
void Draw(GUIElement& element, QPainter& painter, QRect const& box, Theme const* theme);
/// The bytes of a file; empty for what can't be drawn.
std::string Render(GUIElement& element, ElementRendering const& rendering);
/// The format is told by the file's extension. False for what can't be drawn or written; nothing of a file is
/// left behind then.
bool Save(GUIElement& element, std::string const& path, ElementRendering const& rendering);
/// As large as the page's margins allow.
bool Print(GUIElement& element, QPagedPaintDevice& device, Utilities::String const& theme);
/// On a page of A4; see `ApplicationImplementation::PrintElement`.
bool Print(GUIElement& element, std::string const& printer, Utilities::String const& theme);

} // namespace ElementPicture_PC

} // namespace GUI
