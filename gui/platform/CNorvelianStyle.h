#pragma once

#include "gui/elements/colour/Theme.h"
#include "gui/platform/Color_PC.h"

#include <QPalette>
#include <QProxyStyle>

namespace GUI {

/// How the native controls of a window with a theme look: flat fields with a rounded outline, the accent for
/// what is ticked and for a window's default button. What it doesn't draw itself is the platform's own style
/// in the theme's colours. The focus is shown by the window, around the control.
///
/// One object serves all controls of a window. A control keeps it from when it is made; `SetTheme` changes
/// the colours, after which the controls are to be polished again.
class CNorvelianStyle : public QProxyStyle {
public:
    explicit CNorvelianStyle(Theme const& theme);

    void SetTheme(Theme const& theme) { theme_ = theme; }
    /// What the platform's style takes its colours from.
    QPalette GetPalette() const;

    /// The ground of a tool: nothing, or what shows that the mouse is over it, that it is down, on, or has
    /// the focus.
    void DrawTool(QStyleOption const& option, QPainter& painter) const;
    /// Of its icon.
    QColor GetToolTone(bool enabled) const { return Get(enabled ? ThemeRole::Ink : ThemeRole::Ink3); }

    void drawPrimitive(PrimitiveElement element, QStyleOption const* option, QPainter* painter,
                       QWidget const* widget) const override;
    void drawControl(ControlElement element, QStyleOption const* option, QPainter* painter,
                     QWidget const* widget) const override;
    void drawComplexControl(ComplexControl control, QStyleOptionComplex const* option, QPainter* painter,
                            QWidget const* widget) const override;
    QRect subElementRect(SubElement element, QStyleOption const* option,
                         QWidget const* widget) const override;
    int pixelMetric(PixelMetric metric, QStyleOption const* option, QWidget const* widget) const override;
    int styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget,
                  QStyleHintReturn* result) const override;
    QSize sizeFromContents(ContentsType type, QStyleOption const* option, QSize const& contents,
                           QWidget const* widget) const override;

private:
    QColor Get(ThemeRole role) const { return ToColor(theme_.Get(role)); }
    void DrawButton(QStyleOption const& option, QPainter& painter) const;
    void DrawField(QStyleOption const& option, QPainter& painter) const;
    void DrawTick(QStyleOption const& option, QPainter& painter) const;
    void DrawComboBox(QStyleOptionComplex const& option, QPainter& painter) const;
    void DrawScrollBar(QStyleOptionComplex const& option, QPainter& painter, QWidget const* widget) const;

    Theme theme_;
};

} // namespace GUI
