#pragma once

#include "gui/grid/CNorvelianAccessibleParts.h"
#include "gui/grid/model/GridRange.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <utility>

namespace GUI {

class CNorvelianGridCtrl;

/// A cell, as assistive technology sees it. It is made when it is asked for.
class CNorvelianAccessibleCell : public QAccessibleInterface,
                                 public QAccessibleTableCellInterface,
                                 public QAccessibleActionInterface {
public:
    CNorvelianAccessibleCell(CNorvelianGridCtrl& grid, GridPlace const& place);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(QAccessibleInterface const* /*child*/) const override { return -1; }
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, QString const& /*text*/) override {}
    void* interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override;
    int columnIndex() const override { return static_cast<int>(place_.column - 1); }
    int rowIndex() const override { return static_cast<int>(place_.row - 1); }
    int columnExtent() const override;
    int rowExtent() const override;
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override;
    void doAction(QString const& action) override;
    QStringList keyBindingsForAction(QString const& /*action*/) const override { return {}; }

    GridPlace const& GetPlace() const { return place_; }

private:
    QPointer<CNorvelianGridCtrl> grid_;
    GridPlace place_;
};

/// A table for assistive technology.
class CNorvelianAccessibleGrid : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit CNorvelianAccessibleGrid(CNorvelianGridCtrl& grid);

    /// Makes tables known to Qt for as long as the module is loaded.
    static void Install();
    static void TellFocus(CNorvelianGridCtrl& grid);
    static void TellChange(CNorvelianGridCtrl& grid, GridPlace const& place);

    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(QAccessibleInterface const* child) const override;
    QAccessibleInterface* focusChild() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override;
    QList<int> selectedRows() const override;
    bool isColumnSelected(int column) const override;
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int column) override;
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}

private:
    CNorvelianGridCtrl& GetGrid() const;

    mutable CNorvelianAccessibleParts<std::pair<long, long>> cells_;
};

} // namespace GUI
