// SPDX-License-Identifier: MIT
#include "Controls/Cells/ZelCellGroup.h"

#include "Controls/private/ZelControlSupport.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

ZelCellGroup::ZelCellGroup(QWidget *widget, Manner manner)
    : m_widget(widget)
    , m_manner(manner)
{
    ZelControlSupport::prepare();
}

int ZelCellGroup::cellAt(const QPointF &position) const
{
    for (int cell = 0; cell < cellCount(); ++cell) {
        if (cellRect(cell).contains(position.toPoint()))
            return cell;
    }
    return -1;
}

bool ZelCellGroup::takesInput() const
{
    return m_widget->isEnabled();
}

void ZelCellGroup::announceCurrentCell() const
{
    if (!QAccessible::isActive() || currentCell() < 0)
        return;
    QAccessibleEvent event(m_widget, m_widget->hasFocus() ? QAccessible::Focus : QAccessible::Selection);
    event.setChild(currentCell());
    QAccessible::updateAccessibility(&event);
}

bool ZelCellGroup::hasCellFocus(int cell) const
{
    return m_widget->hasFocus() && cell == std::max(currentCell(), 0);
}

void ZelCellGroup::paintCells(const QPaintEvent *event)
{
    QPainter painter(m_widget);
    for (int cell = 0; cell < cellCount(); ++cell) {
        if (event->region().intersects(cellRect(cell)))
            drawCell(&painter, cell);
    }
}

bool ZelCellGroup::handleCellEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return takesInput() && handlePress(static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return takesInput() && handleMove(static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return takesInput() && handleRelease(static_cast<QMouseEvent *>(event));
    case QEvent::KeyPress:
        return takesInput() && handleKey(static_cast<QKeyEvent *>(event)->key());
    case QEvent::ToolTip:
        return showToolTip(static_cast<QHelpEvent *>(event));
    case QEvent::Leave:
        if (m_manner == Menu && !m_widget->hasFocus())
            setCurrentCell(-1);
        return false;
    case QEvent::FocusIn:
        if (m_manner == Menu && currentCell() < 0 &&
            static_cast<QFocusEvent *>(event)->reason() != Qt::MouseFocusReason)
            setCurrentCell(0);
        return false;
    case QEvent::FocusOut:
        if (m_manner == Menu)
            setCurrentCell(-1);
        return false;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate: // a dialog may have opened, and the release goes there
    case QEvent::LayoutDirectionChange:
        m_widget->update();
        [[fallthrough]];
    default:
        if (ZelControlSupport::endsMouseGrab(event, m_widget))
            endPress();
        return false;
    }
}

// The mouse

void ZelCellGroup::setPressedCell(int cell)
{
    if (cell == m_pressed && m_isInside)
        return;
    m_pressed = cell;
    m_isInside = true;
    if (m_manner != Menu) // in a menu a pressed cell looks like any other
        m_widget->update();
}

/// Presses of other buttons are left to the parent. In a menu they are taken, because the menu would read them as a
/// choice.
bool ZelCellGroup::handlePress(const QMouseEvent *event)
{
    const bool isLeft = event->button() == Qt::LeftButton;
    if (!isLeft && m_manner != Menu)
        return false;
    const int cell = cellAt(event->position());
    setPressedCell(isLeft && cell >= 0 && isCellEnabled(cell) ? cell : -1);
    if (m_manner == Menu)
        setCurrentCell(cell);
    else if (m_manner == Tabs && m_pressed >= 0)
        clickCell(m_pressed);
    return true;
}

bool ZelCellGroup::handleMove(const QMouseEvent *event)
{
    const int cell = cellAt(event->position());
    if (m_manner == Menu) {
        setPressedCell(cell);
        setCurrentCell(cell);
        return true;
    }
    if (m_manner == Buttons && m_pressed >= 0 && m_isInside != (cell == m_pressed)) {
        m_isInside = !m_isInside;
        m_widget->update();
    }
    return m_pressed >= 0;
}

/// In a menu a release without a press or a move before it chooses nothing: it may belong to the press that opened the
/// menu.
bool ZelCellGroup::handleRelease(const QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return m_manner == Menu;
    const int cell = m_pressed;
    endPress();
    if (m_manner != Tabs && cell >= 0 && cell == cellAt(event->position()) && isCellEnabled(cell))
        clickCell(cell);
    return true;
}

bool ZelCellGroup::showToolTip(QHelpEvent *event) const
{
    const int cell = cellAt(event->pos());
    const QString text = cell < 0 ? QString() : cellToolTip(cell);
    return ZelControlHelp::showToolTip(event, m_widget, text, cell < 0 ? QRect() : cellRect(cell));
}

// The keyboard

bool ZelCellGroup::choosesByArrows() const
{
    const QAccessible::Role role = cellRoles().cell;
    return role == QAccessible::RadioButton || role == QAccessible::PageTab;
}

/// The cell from which arrow keys start; -1 if there is none.
int ZelCellGroup::keyboardCell() const
{
    if (!choosesByArrows())
        return currentCell();
    for (int cell = 0; cell < cellCount(); ++cell) {
        if (isCellSelected(cell))
            return cell;
    }
    return -1;
}

int ZelCellGroup::enabledCell(int from, int step) const
{
    int cell = from;
    while (cell >= 0 && cell < cellCount() && !isCellEnabled(cell))
        cell += step;
    return cell >= 0 && cell < cellCount() ? cell : -1;
}

/// Answers the next enabled cell of the row or the column, or the same cell at the end. If there is no cell to start
/// from, keys begin at an end of a row. A key that leads out of the rows of a menu is left to the menu.
int ZelCellGroup::cellForKey(int key) const
{
    const int from = keyboardCell();
    const int columns = cellColumns();
    const bool isRow = columns == cellCount();
    const bool isAcross = key == Qt::Key_Left || key == Qt::Key_Right;
    if (!isAcross && (isRow || (key != Qt::Key_Up && key != Qt::Key_Down)))
        return -1;
    const bool isMirrored = isAcross && cellCount() > 1 && cellRect(1).x() < cellRect(0).x();
    const int direction = (key == Qt::Key_Right || key == Qt::Key_Down) != isMirrored ? 1 : -1;
    if (from < 0)
        return isRow ? enabledCell(direction > 0 ? 0 : columns - 1, direction) : -1;
    const int step = isAcross ? direction : direction * columns;
    const int cell = enabledCell(from + step, step);
    if (cell >= 0 && (!isAcross || cell / columns == from / columns))
        return cell;
    return isAcross || m_manner != Menu ? from : -1;
}

bool ZelCellGroup::handleKey(int key)
{
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    const bool clicks = key == Qt::Key_Space || (isReturn && m_manner == Menu);
    const int from = keyboardCell();
    if (clicks && from >= 0 && from < cellCount() && !choosesByArrows()) {
        if (isCellEnabled(from))
            clickCell(from);
        return true;
    }
    const int cell = cellForKey(key);
    if (cell >= 0 && cell != from)
        choosesByArrows() ? clickCell(cell) : setCurrentCell(cell);
    return cell >= 0;
}
