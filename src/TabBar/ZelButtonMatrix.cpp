// SPDX-License-Identifier: MIT
#include "TabBar/ZelButtonMatrix.h"

#include "Platform/Controls/ZelCellGroupAccessible.h"
#include "Platform/Controls/ZelControlSupport.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

ZelButtonMatrix::ZelButtonMatrix(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    setFocusPolicy(Qt::TabFocus); // a click leaves the focus to the editor that may have to commit
}

void ZelButtonMatrix::renewColumns(int count)
{
    const bool resized = count != numberOfColumns();
    m_cells = QList<ZelTabBarButtonCell>(count, m_prototype);
    m_selectedColumn = -1;
    if (m_pressedColumn >= count)
        m_pressedColumn = -1;
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
    return QRect(left, 0, qRound((column + 1) * m_cellWidth) - left, height());
}

int ZelButtonMatrix::columnAtPosition(const QPoint &position) const
{
    const int column = int(std::floor(position.x() / m_cellWidth));
    return rect().contains(position) && column < numberOfColumns() ? column : -1;
}

void ZelButtonMatrix::selectCellAtColumn(int column)
{
    if (column < 0 || column >= numberOfColumns())
        column = -1;
    if (m_selectedColumn == column)
        return;
    m_selectedColumn = column;
    update();
    ZelCellGroupAccessible::selectionDidChange(this);
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
    if (m_cellWidth == width || !(width > 0))
        return;
    m_cellWidth = width;
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
    state.setFlag(ZelTabBarButtonCell::Pressed, column == m_pressedColumn);
    state.setFlag(ZelTabBarButtonCell::Focused, column == qMax(0, m_selectedColumn) && hasFocus());
    state.setFlag(ZelTabBarButtonCell::WindowActive, isActiveWindow());
    state.setFlag(ZelTabBarButtonCell::Enabled, isEnabled() && m_cells.at(column).enabled);
    return state;
}

void ZelButtonMatrix::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    for (int column = 0; column < numberOfColumns(); ++column)
        m_cells.at(column).draw(painter, rectOfColumn(column), stateOfColumn(column), palette());
}

bool ZelButtonMatrix::handleEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ToolTip: {
        const auto *help = static_cast<QHelpEvent *>(event);
        const int column = columnAtPosition(help->pos());
        if (column < 0 || m_cells.at(column).toolTip.isEmpty())
            break;
        QToolTip::showText(help->globalPos(), m_cells.at(column).toolTip, this, rectOfColumn(column));
        return true;
    }
    case QEvent::WindowActivate:
        update();
        break;
    case QEvent::WindowDeactivate: // perhaps by a dialog, which gets the release of the button
        update();
        setPressedColumn(-1);
        break;
    case QEvent::Hide:
    case QEvent::EnabledChange:
        setPressedColumn(-1);
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void ZelButtonMatrix::setPressedColumn(int column)
{
    if (m_pressedColumn == column)
        return;
    m_pressedColumn = column;
    update();
}

void ZelButtonMatrix::mousePressEvent(QMouseEvent *event)
{
    const int column = columnAtPosition(event->position().toPoint());
    if (event->button() != Qt::LeftButton || column < 0) {
        event->ignore();
        return;
    }
    if (m_cells.at(column).enabled)
        setPressedColumn(column);
    performClickAtColumn(column); // may delete the matrix
}

void ZelButtonMatrix::mouseReleaseEvent(QMouseEvent *)
{
    setPressedColumn(-1);
}

int ZelButtonMatrix::enabledColumn(int from, int step) const
{
    for (int column = from; column >= 0 && column < numberOfColumns(); column += step)
        if (m_cells.at(column).enabled)
            return column;
    return -1;
}

void ZelButtonMatrix::keyPressEvent(QKeyEvent *event)
{
    int column = -1;
    switch (event->key()) {
    case Qt::Key_Left:
        column = enabledColumn(m_selectedColumn - 1, -1);
        break;
    case Qt::Key_Right:
        column = enabledColumn(m_selectedColumn + 1, 1);
        break;
    case Qt::Key_Home:
        column = enabledColumn(0, 1);
        break;
    case Qt::Key_End:
        column = enabledColumn(numberOfColumns() - 1, -1);
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (column != m_selectedColumn)
        performClickAtColumn(column);
}
