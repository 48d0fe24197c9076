#include "gui/platform/CNorvelianStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace GUI {

namespace {

constexpr double radius = 4;
constexpr int tickSize = 18;
/// What the text of a control keeps from its edges.
constexpr int textMargin = 12;
constexpr int scrollBarWidth = 14;
constexpr int arrowWidth = 28;

bool Has(QStyleOption const& option, QStyle::StateFlag flag) { return option.state.testFlag(flag); }

void RoundBox(QPainter& painter, QRectF const& box, QColor const& fill, QColor const& line, double corner) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill);
    painter.setPen(QPen(line, 1));
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
    painter.restore();
}

void DrawChevron(QPainter& painter, QPointF middle, QColor const& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPointF const points[] = {middle + QPointF(-4, -2), middle + QPointF(0, 2), middle + QPointF(4, -2)};
    painter.drawPolyline(points, 3);
    painter.restore();
}

} // namespace

CNorvelianStyle::CNorvelianStyle(Theme const& theme) : QProxyStyle(QStringLiteral("Fusion")), theme_(theme) {}

QPalette CNorvelianStyle::GetPalette() const {
    QPalette palette;
    auto const set = [&](QPalette::ColorRole role, ThemeRole color) { palette.setColor(role, Get(color)); };
    set(QPalette::Window, ThemeRole::Window);
    set(QPalette::Base, ThemeRole::Field);
    set(QPalette::AlternateBase, ThemeRole::Panel);
    set(QPalette::Button, ThemeRole::Header);
    set(QPalette::ToolTipBase, ThemeRole::Field);
    for (auto const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::BrightText})
        set(role, ThemeRole::Ink);
    set(QPalette::PlaceholderText, ThemeRole::Ink3);
    set(QPalette::Highlight, ThemeRole::Accent);
    set(QPalette::HighlightedText, ThemeRole::AccentInk);
    set(QPalette::Light, ThemeRole::Panel);
    set(QPalette::Midlight, ThemeRole::Header);
    set(QPalette::Mid, ThemeRole::Line);
    set(QPalette::Dark, ThemeRole::Border);
    set(QPalette::Shadow, ThemeRole::Ink);
    for (auto const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Get(ThemeRole::Ink3));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, Get(ThemeRole::Line));
    return palette;
}

void CNorvelianStyle::DrawButton(QStyleOption const& option, QPainter& painter) const {
    auto const* const button = qstyleoption_cast<QStyleOptionButton const*>(&option);
    bool const isDefault = button && button->features.testFlag(QStyleOptionButton::DefaultButton);
    ThemeRole fill = ThemeRole::Field;
    ThemeRole line = ThemeRole::Border;
    if (!Has(option, State_Enabled)) {
        fill = ThemeRole::Window;
        line = ThemeRole::Line;
    } else if (isDefault) {
        fill = line = ThemeRole::Accent;
    } else if (Has(option, State_Sunken) || Has(option, State_On)) {
        fill = ThemeRole::Line;
        line = ThemeRole::Ink;
    } else if (Has(option, State_MouseOver)) {
        fill = ThemeRole::Header;
    }
    RoundBox(painter, option.rect, Get(fill), Get(line), radius);
}

void CNorvelianStyle::DrawTool(QStyleOption const& option, QPainter& painter) const {
    bool const enabled = Has(option, State_Enabled);
    QRectF const box(option.rect);
    if (Has(option, State_On))
        RoundBox(painter, box, Get(ThemeRole::Field), Get(enabled ? ThemeRole::Border : ThemeRole::Line),
                 radius);
    else if (enabled && Has(option, State_Sunken))
        RoundBox(painter, box, Get(ThemeRole::Line), Get(ThemeRole::Ink), radius);
    else if (enabled && Has(option, State_MouseOver))
        RoundBox(painter, box, Get(ThemeRole::Line), Get(ThemeRole::Line), radius);
    if (!Has(option, State_HasFocus)) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Get(ThemeRole::Accent), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(2, 2, -2, -2), radius, radius);
    painter.restore();
}

void CNorvelianStyle::DrawField(QStyleOption const& option, QPainter& painter) const {
    bool const enabled = Has(option, State_Enabled);
    RoundBox(painter, option.rect, enabled ? option.palette.color(QPalette::Base) : Get(ThemeRole::Panel),
             Get(enabled ? ThemeRole::Border : ThemeRole::Line), radius);
}

void CNorvelianStyle::DrawTick(QStyleOption const& option, QPainter& painter) const {
    bool const enabled = Has(option, State_Enabled);
    bool const on = Has(option, State_On);
    bool const undecided = Has(option, State_NoChange);
    QColor const ink = Get(ThemeRole::AccentInk);
    if (!on && !undecided)
        return RoundBox(painter, option.rect, Get(enabled ? ThemeRole::Field : ThemeRole::Panel),
                        Get(enabled ? ThemeRole::Border : ThemeRole::Line), radius - 1);
    QColor const fill = Get(enabled ? ThemeRole::Accent : ThemeRole::Ink3);
    RoundBox(painter, option.rect, fill, fill, radius - 1);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QRectF const box(option.rect);
    auto const at = [&box](double x, double y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    if (undecided) {
        painter.drawLine(at(0.28, 0.5), at(0.72, 0.5));
    } else {
        QPointF const points[] = {at(0.24, 0.52), at(0.43, 0.7), at(0.76, 0.3)};
        painter.drawPolyline(points, 3);
    }
    painter.restore();
}

void CNorvelianStyle::DrawComboBox(QStyleOptionComplex const& option, QPainter& painter) const {
    DrawField(option, painter);
    QRect const arrow(option.rect.right() + 1 - arrowWidth, option.rect.top(), arrowWidth,
                      option.rect.height());
    DrawChevron(painter, QRectF(arrow).center(),
                Get(Has(option, State_Enabled) ? ThemeRole::Ink : ThemeRole::Ink3));
}

void CNorvelianStyle::DrawScrollBar(QStyleOptionComplex const& option, QPainter& painter,
                                    QWidget const* widget) const {
    painter.fillRect(option.rect, Get(ThemeRole::Header));
    if (!Has(option, State_Enabled)) return;
    QRect const thumb = subControlRect(CC_ScrollBar, &option, SC_ScrollBarSlider, widget);
    bool const held = option.activeSubControls.testFlag(SC_ScrollBarSlider) &&
                      (Has(option, State_Sunken) || Has(option, State_MouseOver));
    QColor const color = Get(held ? ThemeRole::Ink2 : ThemeRole::Border);
    RoundBox(painter, QRectF(thumb).adjusted(3, 3, -3, -3), color, color, radius);
    for (SubControl const end : {SC_ScrollBarSubLine, SC_ScrollBarAddLine}) {
        QRect const box = subControlRect(CC_ScrollBar, &option, end, widget);
        if (box.isEmpty()) continue;
        bool const level = Has(option, State_Horizontal);
        double const turn = (level ? 90.0 : 180.0) + (end == SC_ScrollBarAddLine ? 180.0 : 0.0);
        painter.save();
        painter.translate(QRectF(box).center());
        painter.rotate(turn);
        painter.scale(0.75, 0.75);
        DrawChevron(painter, {}, Get(ThemeRole::Ink2));
        painter.restore();
    }
}

void CNorvelianStyle::drawPrimitive(PrimitiveElement element, QStyleOption const* option, QPainter* painter,
                                    QWidget const* widget) const {
    switch (element) {
    case PE_PanelButtonCommand:
        return DrawButton(*option, *painter);
    case PE_PanelLineEdit:
        // One inside another control has no frame, and is on that control's.
        if (auto const* const frame = qstyleoption_cast<QStyleOptionFrame const*>(option);
            frame && frame->lineWidth > 0)
            DrawField(*option, *painter);
        return;
    case PE_Frame:
        return RoundBox(*painter, option->rect, Qt::transparent, Get(ThemeRole::Border), radius);
    case PE_IndicatorCheckBox:
        return DrawTick(*option, *painter);
    case PE_FrameFocusRect:
        // The window shows it.
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void CNorvelianStyle::drawControl(ControlElement element, QStyleOption const* option, QPainter* painter,
                                  QWidget const* widget) const {
    auto const* const button =
        element == CE_PushButtonLabel ? qstyleoption_cast<QStyleOptionButton const*>(option) : nullptr;
    bool const isDefault =
        button && button->features.testFlag(QStyleOptionButton::DefaultButton) && Has(*option, State_Enabled);
    if (isDefault) {
        QStyleOptionButton label = *button;
        label.palette.setColor(QPalette::ButtonText, Get(ThemeRole::AccentInk));
        QFont font = painter->font();
        font.setBold(true);
        painter->setFont(font);
        return QProxyStyle::drawControl(element, &label, painter, widget);
    }
    bool const isMenuItem = element == CE_MenuItem || element == CE_MenuBarItem;
    auto const* const item = isMenuItem ? qstyleoption_cast<QStyleOptionMenuItem const*>(option) : nullptr;
    if (item && Has(*item, State_Selected) && Has(*item, State_Enabled)) {
        // The platform's style writes on the highlight as on any ground.
        QStyleOptionMenuItem highlighted = *item;
        for (auto const role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
            highlighted.palette.setColor(role, Get(ThemeRole::AccentInk));
        return QProxyStyle::drawControl(element, &highlighted, painter, widget);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void CNorvelianStyle::drawComplexControl(ComplexControl control, QStyleOptionComplex const* option,
                                         QPainter* painter, QWidget const* widget) const {
    if (control == CC_ComboBox) return DrawComboBox(*option, *painter);
    if (control == CC_ScrollBar) return DrawScrollBar(*option, *painter, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect CNorvelianStyle::subElementRect(SubElement element, QStyleOption const* option,
                                      QWidget const* widget) const {
    constexpr int inset = 6;
    QRect const rect = QProxyStyle::subElementRect(element, option, widget);
    auto const* const frame = qstyleoption_cast<QStyleOptionFrame const*>(option);
    bool const isFramed = element == SE_LineEditContents && frame && frame->lineWidth > 0;
    return isFramed ? rect.adjusted(inset, 0, -inset, 0) : rect;
}

int CNorvelianStyle::pixelMetric(PixelMetric metric, QStyleOption const* option,
                                 QWidget const* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return tickSize;
    case PM_CheckBoxLabelSpacing:
        return 8;
    case PM_ButtonMargin:
        return 2 * textMargin;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_MenuBarItemSpacing:
        return 0;
    case PM_MenuBarVMargin:
        return 1;
    case PM_ScrollBarExtent:
        return scrollBarWidth;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int CNorvelianStyle::styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget,
                               QStyleHintReturn* result) const {
    if (hint == SH_EtchDisabledText || hint == SH_DitherDisabledText) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

QSize CNorvelianStyle::sizeFromContents(ContentsType type, QStyleOption const* option, QSize const& contents,
                                        QWidget const* widget) const {
    constexpr int menuBarHeight = 28;
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_MenuBarItem) size.setHeight(menuBarHeight - 2);
    return size;
}

} // namespace GUI
