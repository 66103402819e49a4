// SPDX-License-Identifier: MIT
#include "TabBar/ZelButtonMatrix.h"

#include "Core/Values/private/ZelAssign.h"

#include <QPainter>
#include <QStyle>
#include <cmath>

ZelButtonMatrix::ZelButtonMatrix(QWidget *parent)
    : ZelGuarded(parent)
    , ZelCellGroup(this, Tabs)
{
    setFocusPolicy(Qt::TabFocus); // a click must not move the focus away from a text that may be refused
}

void ZelButtonMatrix::renewColumns(int count)
{
    const bool resized = count != numberOfColumns();
    m_cells = QList<ZelTabBarButtonCell>(count, m_prototype);
    m_selectedColumn = -1;
    if (resized)
        updateGeometry();
    update();
}

void ZelButtonMatrix::setCellAtColumn(int column, const ZelTabBarButtonCell &cell)
{
    m_cells[column] = cell;
    update(rectOfColumn(column));
}

QRect ZelButtonMatrix::rectOfColumn(int column) const
{
    const int left = qRound(column * m_cellWidth);
    const QRect place(left, 0, qRound((column + 1) * m_cellWidth) - left, height());
    return QStyle::visualRect(layoutDirection(), rect(), place);
}

void ZelButtonMatrix::selectCellAtColumn(int column)
{
    if (column < 0 || column >= numberOfColumns())
        column = -1;
    if (!ZelAssign(m_selectedColumn, column))
        return;
    update();
    announceCurrentCell();
}

void ZelButtonMatrix::performClickAtColumn(int column)
{
    if (!isEnabled() || column < 0 || column >= numberOfColumns() || !m_cells.at(column).enabled)
        return;
    selectCellAtColumn(column);
    Q_EMIT triggered();
}

void ZelButtonMatrix::setCellWidth(double width)
{
    if (!(width > 0) || !ZelAssign(m_cellWidth, width))
        return;
    updateGeometry();
    update();
}

QSize ZelButtonMatrix::sizeHint() const
{
    return QSize(int(std::ceil(m_cellWidth * numberOfColumns())), 22);
}

ZelTabBarButtonCell::State ZelButtonMatrix::stateOfColumn(int column) const
{
    ZelTabBarButtonCell::State state;
    state.setFlag(ZelTabBarButtonCell::Selected, column == m_selectedColumn);
    state.setFlag(ZelTabBarButtonCell::Pressed, isCellPressed(column));
    state.setFlag(ZelTabBarButtonCell::Focused, hasCellFocus(column));
    state.setFlag(ZelTabBarButtonCell::WindowActive, isActiveWindow());
    state.setFlag(ZelTabBarButtonCell::Enabled, isEnabled() && m_cells.at(column).enabled);
    return state;
}

void ZelButtonMatrix::drawCell(QPainter *painter, int cell) const
{
    m_cells.at(cell).draw(*painter, rectOfColumn(cell), stateOfColumn(cell), palette());
}

int ZelButtonMatrix::cellForKey(int key) const
{
    if (key == Qt::Key_Home)
        return enabledCell(0, 1);
    return key == Qt::Key_End ? enabledCell(numberOfColumns() - 1, -1) : ZelCellGroup::cellForKey(key);
}
