// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QRect>
#include <QString>

/// What a widget tells of its cells: parts that a user chooses among and that are no widgets, such as the segments of a
/// control. Adopted with Q_INTERFACES(ZelCellGroup) by a widget that calls ZelControlSupport::prepare(), and that tells
/// ZelCellGroupAccessible when another cell was chosen. Assistive technology then sees a child for each cell, and can
/// click it.
class ZelCellGroup
{
public:
    /// The roles of the widget and of each cell. Cells that are buttons of a choice or boxes are checked, others
    /// selected.
    struct Roles
    {
        QAccessible::Role group = QAccessible::Grouping;
        QAccessible::Role cell = QAccessible::RadioButton;
    };

    virtual ~ZelCellGroup() = default;
    virtual Roles cellRoles() const { return {}; }
    virtual int cellCount() const = 0;
    /// In the widget's coordinates.
    virtual QRect cellRect(int cell) const = 0;
    virtual QString cellName(int cell) const = 0;
    virtual bool isCellEnabled(int) const { return true; }
    virtual bool isCellSelected(int cell) const = 0;
    /// The cell that the keyboard is at when the widget has the focus; -1 for none.
    virtual int currentCell() const = 0;
    /// What a user's click on the cell does. The widget may be gone afterwards.
    virtual void clickCell(int cell) = 0;
};
Q_DECLARE_INTERFACE(ZelCellGroup, "Zel.CellGroup")
