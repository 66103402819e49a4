// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

class QWidget;

/// Makes the Tab key visit the controls of a view in the order of its subviews, after these have changed. Qt itself
/// puts every widget that comes into a window at the end of the tab order, wherever it stands among the others.
class ZelTabOrder
{
public:
    /// To be made before the subviews change.
    explicit ZelTabOrder(QWidget *view);
    /// To be called afterwards. The controls get the place in the tab order that the first of them had before. If there
    /// was none, they come after the controls of the views that stand before this one.
    void followSubviews() const;

private:
    QPointer<QWidget> m_view;
    QPointer<QWidget> m_first;  // of its tab stops
    QPointer<QWidget> m_before; // the tab stop before all those of the view
};
