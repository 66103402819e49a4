// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <QHash>

class QAction;
class ZelPopUpMenu;

/// Lets assistive technology see the marks that the menu of a pop-up button draws. Qt's own interface knows only items
/// that are checkable themselves.
class ZelPopUpMenuAccessible : public QAccessibleWidget
{
public:
    /// Answers null for any other object.
    static QAccessibleInterface *make(QObject *object);
    ~ZelPopUpMenuAccessible() override;

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

private:
    explicit ZelPopUpMenuAccessible(ZelPopUpMenu *menu);
    QAccessibleInterface *childFor(QAction *item) const;
    ZelPopUpMenu *menu() const;

    mutable QHash<QAction *, QAccessible::Id> m_children;
};
