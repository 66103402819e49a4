// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

class QWidget;

/// Keeps the order in which the Tab key visits the controls of a view that of its subviews, when these change: Qt gives
/// what comes into a window the last place, wherever among the others it stands.
class ZelTabOrder
{
public:
    /// Made before the subviews change.
    explicit ZelTabOrder(QWidget *view);
    /// Called afterwards. The controls get the place that the first of them had, or else come after those of the
    /// views before this one.
    void followSubviews() const;

private:
    QPointer<QWidget> m_view;
    QPointer<QWidget> m_before; // visited before all controls of the view
};
