// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelCellGroup.h"
#include "Platform/Runtime/ZelGuarded.h"
#include "TabBar/ZelTabBarButtonCell.h"

#include <QList>
#include <QWidget>

/// A row of light-weight toggle buttons, one of which is selected.
///
/// The buttons are cells, not widgets: copies of a prototype, then changed one by one. A press on a button selects it
/// and sends the action at once; so do the arrow keys, Home and End, which pass over buttons that are not enabled.
class ZelButtonMatrix : public ZelGuarded<QWidget>, public ZelCellGroup
{
    Q_OBJECT
    Q_INTERFACES(ZelCellGroup)
public:
    explicit ZelButtonMatrix(QWidget *parent = nullptr);

    ZelTabBarButtonCell &prototype() { return m_prototype; }
    int numberOfColumns() const { return int(m_cells.size()); }
    /// Replaces all buttons by that many copies of the prototype, none of them selected.
    void renewColumns(int count);
    const ZelTabBarButtonCell &cellAtColumn(int column) const { return m_cells.at(column); }
    void setCellAtColumn(int column, const ZelTabBarButtonCell &cell);
    QRect rectOfColumn(int column) const;
    /// -1 beside the buttons.
    int columnAtPosition(const QPoint &position) const;

    /// -1 without a selected button.
    int selectedColumn() const { return m_selectedColumn; }
    /// Sends no action. A column that does not exist selects none.
    void selectCellAtColumn(int column);
    /// What a press on the button does; nothing if it is not enabled.
    void performClickAtColumn(int column);

    /// The buttons are tabs, named by their tool tips.
    Roles cellRoles() const override { return {QAccessible::PageTabList, QAccessible::PageTab}; }
    int cellCount() const override { return numberOfColumns(); }
    QRect cellRect(int cell) const override { return rectOfColumn(cell); }
    QString cellName(int cell) const override { return m_cells.at(cell).toolTip; }
    bool isCellEnabled(int cell) const override { return m_cells.at(cell).enabled; }
    bool isCellSelected(int cell) const override { return cell == m_selectedColumn; }
    int currentCell() const override { return m_selectedColumn; }
    void clickCell(int cell) override { performClickAtColumn(cell); }

    /// Points; 32.
    double cellWidth() const { return m_cellWidth; }
    void setCellWidth(double width);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user has selected a button.
    void triggered();

protected:
    bool handleEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    int enabledColumn(int from, int step) const;
    void setPressedColumn(int column);
    ZelTabBarButtonCell::State stateOfColumn(int column) const;

    ZelTabBarButtonCell m_prototype;
    QList<ZelTabBarButtonCell> m_cells;
    int m_selectedColumn = -1;
    int m_pressedColumn = -1;
    double m_cellWidth = 32;
};
