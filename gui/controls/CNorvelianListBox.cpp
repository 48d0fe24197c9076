#include "gui/controls/CNorvelianListBox.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

namespace GUI {

CNorvelianListBox::CNorvelianListBox(QWidget* parent) : QListView(parent) {
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

int CNorvelianListBox::GetPage() const { return std::max(viewport()->height() / rowHeight_, 1); }

int CNorvelianListBox::verticalOffset() const { return verticalScrollBar()->value() * rowHeight_; }

QRect CNorvelianListBox::visualRect(QModelIndex const& index) const {
    if (!index.isValid()) return {};
    return {0, (index.row() - verticalScrollBar()->value()) * rowHeight_, viewport()->width(), rowHeight_};
}

QModelIndex CNorvelianListBox::indexAt(QPoint const& point) const {
    if (point.y() < 0 || point.x() < 0 || point.x() >= viewport()->width()) return {};
    int const row = verticalScrollBar()->value() + point.y() / rowHeight_;
    return row < GetRowCount() ? model()->index(row, 0) : QModelIndex();
}

void CNorvelianListBox::scrollTo(QModelIndex const& index, ScrollHint hint) {
    if (!index.isValid()) return;
    int const first = verticalScrollBar()->value();
    int const page = GetPage();
    int wanted = first;
    if (hint == PositionAtCenter)
        wanted = index.row() - page / 2;
    else if (hint == PositionAtTop || index.row() < first)
        wanted = index.row();
    else if (hint == PositionAtBottom || index.row() >= first + page)
        wanted = index.row() - page + 1;
    verticalScrollBar()->setValue(wanted);
}

void CNorvelianListBox::doItemsLayout() {
    if (GetRowCount() != 0) rowHeight_ = std::max(sizeHintForIndex(model()->index(0, 0)).height(), 1);
    // Not the base class's, which visits all rows.
    QAbstractItemView::doItemsLayout(); // NOLINT(bugprone-parent-virtual-call)
}

void CNorvelianListBox::updateGeometries() {
    verticalScrollBar()->setRange(0, std::max(GetRowCount() - GetPage(), 0));
    verticalScrollBar()->setPageStep(GetPage());
    verticalScrollBar()->setSingleStep(1);
    QAbstractItemView::updateGeometries(); // NOLINT(bugprone-parent-virtual-call)
}

void CNorvelianListBox::scrollContentsBy(int /*dx*/, int /*dy*/) { viewport()->update(); }

QModelIndex CNorvelianListBox::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/) {
    int const count = GetRowCount();
    if (count == 0) return {};
    int row = currentIndex().isValid() ? currentIndex().row() : -1;
    switch (action) {
    case MoveUp:
    case MoveLeft:
    case MovePrevious:
        row = row < 0 ? 0 : row - 1;
        break;
    case MoveDown:
    case MoveRight:
    case MoveNext:
        ++row;
        break;
    case MovePageUp:
        row -= GetPage();
        break;
    case MovePageDown:
        row += GetPage();
        break;
    case MoveHome:
        row = 0;
        break;
    case MoveEnd:
        row = count - 1;
        break;
    }
    return model()->index(std::clamp(row, 0, count - 1), 0);
}

void CNorvelianListBox::setSelection(QRect const& box, QItemSelectionModel::SelectionFlags flags) {
    QModelIndex const index = indexAt(box.center());
    selectionModel()->select(index.isValid() ? QItemSelection(index, index) : QItemSelection(), flags);
}

QRegion CNorvelianListBox::visualRegionForSelection(QItemSelection const& selection) const {
    QRegion region;
    for (QModelIndex const& index : selection.indexes()) region += visualRect(index);
    return region;
}

void CNorvelianListBox::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    QStyle::State const plain = option.state;
    int const first = verticalScrollBar()->value() + event->rect().top() / rowHeight_;
    int const last =
        std::min(verticalScrollBar()->value() + event->rect().bottom() / rowHeight_, GetRowCount() - 1);
    for (int row = first; row <= last; ++row) {
        QModelIndex const index = model()->index(row, 0);
        option.rect = visualRect(index);
        option.state = plain;
        option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
        option.state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
        itemDelegateForIndex(index)->paint(&painter, option, index);
    }
}

void CNorvelianListBox::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        scheduleDelayedItemsLayout();
}

} // namespace GUI
