// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Cells/ZelCellGroup.h"

#include <QAccessibleWidget>
#include <QHash>

/// Lets assistive technology see the cells of a widget.
class ZelCellGroupAccessible : public QAccessibleWidget
{
public:
    /// Answers null for a widget that has no cells.
    static QAccessibleInterface *make(QObject *object);
    ~ZelCellGroupAccessible() override;

    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

private:
    ZelCellGroupAccessible(QWidget *widget, ZelCellGroup *cells);

    ZelCellGroup *m_cells; // a base of the widget, so it dies with the widget
    mutable QHash<int, QAccessible::Id> m_children;
};
