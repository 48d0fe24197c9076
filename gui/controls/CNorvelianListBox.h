#pragma once

#include <QListView>

namespace GUI {

/// The window of a list box. All rows have one height, so that their places are worked out and not kept: the
/// base class lays out every row before the first paint, which takes milliseconds for 100000.
class CNorvelianListBox : public QListView {
public:
    explicit CNorvelianListBox(QWidget* parent);

    QRect visualRect(QModelIndex const& index) const override;
    QModelIndex indexAt(QPoint const& point) const override;
    void scrollTo(QModelIndex const& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

protected:
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(QRect const& box, QItemSelectionModel::SelectionFlags flags) override;
    QRegion visualRegionForSelection(QItemSelection const& selection) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int GetRowCount() const { return model() ? model()->rowCount() : 0; }
    /// Whole rows that fit, at least one.
    int GetPage() const;

    int rowHeight_ = 1;
};

} // namespace GUI
