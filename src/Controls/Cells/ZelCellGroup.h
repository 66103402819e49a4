// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QAccessible>
#include <QRect>
#include <QString>

class QEvent;
class QHelpEvent;
class QMouseEvent;
class QPaintEvent;
class QPainter;
class QWidget;

/// A row or a grid of cells: parts of a widget among which a user chooses and which are not widgets themselves, such as
/// the segments of a control. The widget derives from this class, names it in Q_INTERFACES, hands its events to
/// handleCellEvent() and its painting to paintCells(). The widget itself only says where its cells are, how each is
/// drawn, and what a click does.
///
/// Arrow keys skip cells that are not enabled and stop at the ends. Where cells are laid out from right to left, Left
/// still moves to the left on the screen. Assistive technology sees a child for each cell, and can click it.
class ZEL_EXPORT ZelCellGroup
{
public:
    /// What the mouse does.
    enum Manner {
        Tabs,    ///< A press clicks the cell at once.
        Buttons, ///< A release over the cell that was pressed clicks it.
        Menu,    ///< The cell under the pointer is the current one, and a release clicks it.
    };
    /// The roles of the widget and of each cell. Arrow keys choose among radio buttons and tabs. They only lead to
    /// cells of other roles, which the space key clicks. Radio buttons and check boxes are checked, others selected.
    struct Roles
    {
        QAccessible::Role group = QAccessible::Grouping;
        QAccessible::Role cell = QAccessible::RadioButton;
    };

    virtual ~ZelCellGroup() = default;
    virtual Roles cellRoles() const { return {}; }
    virtual int cellCount() const = 0;
    /// The rectangle of the cell in the widget's coordinates.
    virtual QRect cellRect(int cell) const = 0;
    /// The cell at the position of an event; -1 if there is none.
    virtual int cellAt(const QPointF &position) const;
    virtual QString cellName(int cell) const = 0;
    /// The tool tip of the cell; null if it has none.
    virtual QString cellToolTip(int) const { return {}; }
    virtual bool isCellEnabled(int) const { return true; }
    virtual bool isCellSelected(int cell) const = 0;
    /// The cell that keys act on while the widget has the focus; -1 if there is none.
    virtual int currentCell() const = 0;
    /// Does what a user's click on the cell does. The widget may be gone afterwards.
    virtual void clickCell(int cell) = 0;

protected:
    ZelCellGroup(QWidget *widget, Manner manner);

    /// Answers whether the event was for the cells. If not, the widget passes it to its base class.
    bool handleCellEvent(QEvent *event);
    void paintCells(const QPaintEvent *event);
    /// Tells assistive technology that another cell was selected, or that the keys act on another one.
    void announceCurrentCell() const;
    /// Forgets the cell that is pressed.
    void endPress() { setPressedCell(-1); }
    bool isCellPressed(int cell) const { return cell == m_pressed && m_isInside; }
    bool hasCellFocus(int cell) const;

    /// The number of cells in a row.
    virtual int cellColumns() const { return cellCount(); }
    /// Whether the cells react to the keys and the mouse; by default while the widget is enabled.
    virtual bool takesInput() const;
    /// Called when a key or the pointer moves to a cell without choosing it; -1 if to none.
    virtual void setCurrentCell(int) {}
    /// The cell to which the key moves; -1 for a key that does not move.
    virtual int cellForKey(int key) const;
    /// The first enabled cell at `from` or beyond it in steps of `step`; -1 if there is none.
    int enabledCell(int from, int step) const;
    virtual void drawCell(QPainter *, int) const {}

private:
    bool choosesByArrows() const;
    int keyboardCell() const;
    void setPressedCell(int cell);
    bool handlePress(const QMouseEvent *event);
    bool handleMove(const QMouseEvent *event);
    bool handleRelease(const QMouseEvent *event);
    bool handleKey(int key);
    bool showToolTip(QHelpEvent *event) const;

    QWidget *m_widget;
    Manner m_manner;
    int m_pressed = -1;
    bool m_isInside = true; // the pointer is over the pressed cell
};
Q_DECLARE_INTERFACE(ZelCellGroup, "Zel.CellGroup")
