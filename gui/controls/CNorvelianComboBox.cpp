#include "gui/controls/CNorvelianComboBox.h"

#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QWheelEvent>

namespace GUI {

namespace {

/// Where the text of a drawn entry begins.
constexpr int textInset = 2;
constexpr QColor disabledText(0x80, 0x80, 0x80);

int ItemHeight(QFontMetrics const& metrics) { return metrics.height() + 2 * textInset; }

class EntryPainter : public QStyledItemDelegate {
public:
    explicit EntryPainter(CNorvelianComboBox& box) : QStyledItemDelegate(&box), box_(box) {}
    void paint(QPainter* painter, QStyleOptionViewItem const& option,
               QModelIndex const& index) const override {
        box_.DrawItem(*painter, option.rect, index.data().toString(), option.state);
    }
    QSize sizeHint(QStyleOptionViewItem const& option, QModelIndex const& /*index*/) const override {
        return {option.rect.width(), ItemHeight(option.fontMetrics)};
    }

private:
    CNorvelianComboBox& box_;
};

} // namespace

CNorvelianComboBox::CNorvelianComboBox(QWidget* parent) : QComboBox(parent) {
    // What is typed is reported and doesn't become an entry.
    setInsertPolicy(NoInsert);
    // Sizes come from the layout; asking all of 10000 entries for theirs would take long.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    if (auto* const list = dynamic_cast<QListView*>(view())) list->setUniformItemSizes(true);
}

void CNorvelianComboBox::SetColors(Colors const& colors) {
    colors_ = colors;
    setItemDelegate(new EntryPainter(*this));
    QPalette palette = this->palette();
    palette.setColor(QPalette::Base, colors.background);
    palette.setColor(QPalette::Text, colors.font);
    setPalette(palette);
}

void CNorvelianComboBox::DrawItem(QPainter& painter, QRect const& box, QString const& text,
                                  QStyle::State state) const {
    QColor font = isEnabled() ? colors_->font : disabledText;
    QColor background = colors_->background;
    if (isEnabled() && state.testFlag(QStyle::State_Selected)) {
        font = background;
        background = palette().color(QPalette::Highlight);
    }
    painter.save();
    painter.setClipRect(box, Qt::IntersectClip);
    painter.fillRect(box, background);
    painter.setPen(font);
    painter.setFont(this->font());
    painter.drawText(box.adjusted(textInset, textInset, 0, 0),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, text);
    painter.restore();
    if (!state.testFlag(QStyle::State_HasFocus)) return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = box;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void CNorvelianComboBox::paintEvent(QPaintEvent* event) {
    if (!colors_ || isEditable()) return QComboBox::paintEvent(event);
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    QRect const field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    // An entry's height in the middle of the field.
    painter.fillRect(field,
                     isEnabled() && hasFocus() ? palette().color(QPalette::Highlight) : colors_->background);
    int const height = ItemHeight(fontMetrics());
    QRect const item(field.left(), field.top() + (field.height() - height) / 2, field.width(), height);
    QStyle::State state;
    if (hasFocus()) state |= QStyle::State_Selected | QStyle::State_HasFocus;
    DrawItem(painter, item, currentText(), state);
}

void CNorvelianComboBox::wheelEvent(QWheelEvent* event) {
    // Turning the wheel over a window of controls must not change one that nobody works with.
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace GUI
