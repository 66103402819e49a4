// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Cells/ZelCellGroup.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "TabBar/ZelTabBarButtonCell.h"

#include <QList>
#include <QWidget>

/// A row of light-weight toggle buttons, one of which is selected.
///
/// The buttons are cells and not widgets. They are copies of a prototype and can be changed one by one. A press on a
/// button selects it and emits triggered() at once; so do the arrow keys, Home and End, which skip buttons that are not
/// enabled.
class ZEL_EXPORT ZelButtonMatrix : public ZelGuarded<QWidget>, public ZelCellGroup
{
    Q_OBJECT
    Q_INTERFACES(ZelCellGroup)
public:
    explicit ZelButtonMatrix(QWidget *parent = nullptr);

    ZelTabBarButtonCell &prototype() { return m_prototype; }
    int numberOfColumns() const { return int(m_cells.size()); }
    /// Replaces all buttons by this many copies of the prototype. None of them is selected.
    void renewColumns(int count);
    const ZelTabBarButtonCell &cellAtColumn(int column) const { return m_cells.at(column); }
    void setCellAtColumn(int column, const ZelTabBarButtonCell &cell);
    QRect rectOfColumn(int column) const;
    /// The column of the button at the position; -1 if there is none.
    int columnAtPosition(const QPoint &position) const { return cellAt(position); }

    /// The column of the selected button; -1 if none is selected.
    int selectedColumn() const { return m_selectedColumn; }
    /// Selects a button without emitting triggered(). A column that does not exist deselects.
    void selectCellAtColumn(int column);
    /// Does what a press on the button does. Does nothing if the button is not enabled.
    void performClickAtColumn(int column);

    /// The buttons are tabs, named by their tool tips, with the numbers on them.
    Roles cellRoles() const override { return {QAccessible::PageTabList, QAccessible::PageTab}; }
    int cellCount() const override { return numberOfColumns(); }
    QRect cellRect(int cell) const override { return rectOfColumn(cell); }
    QString cellName(int cell) const override { return m_cells.at(cell).name(); }
    QString cellToolTip(int cell) const override { return cellName(cell); }
    bool isCellEnabled(int cell) const override { return m_cells.at(cell).enabled; }
    bool isCellSelected(int cell) const override { return cell == m_selectedColumn; }
    int currentCell() const override { return m_selectedColumn; }
    void clickCell(int cell) override { performClickAtColumn(cell); }

    /// The width of each button in points; 32 by default.
    double cellWidth() const { return m_cellWidth; }
    void setCellWidth(double width);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user has selected a button.
    void triggered();

protected:
    bool handleEvent(QEvent *event) override { return handleCellEvent(event) || QWidget::event(event); }
    void paintEvent(QPaintEvent *event) override { paintCells(event); }
    int cellForKey(int key) const override;
    void drawCell(QPainter *painter, int cell) const override;

private:
    ZelTabBarButtonCell::State stateOfColumn(int column) const;

    ZelTabBarButtonCell m_prototype;
    QList<ZelTabBarButtonCell> m_cells;
    int m_selectedColumn = -1;
    double m_cellWidth = 32;
};
