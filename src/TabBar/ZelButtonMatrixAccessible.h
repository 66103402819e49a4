// SPDX-License-Identifier: MIT
#pragma once

#include "TabBar/ZelButtonMatrix.h"

#include <QAccessibleWidget>
#include <QHash>

/// Lets assistive technology see a button matrix as a list of tabs, named by their tool tips.
class ZelButtonMatrixAccessible : public QAccessibleWidget
{
public:
    explicit ZelButtonMatrixAccessible(ZelButtonMatrix *matrix);
    ~ZelButtonMatrixAccessible() override;

    /// Makes these interfaces known; only the first call does anything.
    static void install();
    static void selectionDidChange(ZelButtonMatrix *matrix);

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

private:
    ZelButtonMatrix *matrix() const { return static_cast<ZelButtonMatrix *>(object()); }
    mutable QHash<int, QAccessible::Id> m_tabs;
};
