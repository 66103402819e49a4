// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

class ZelView;

/// Takes many uninstalled views out of a window in time that grows with their number.
///
/// Qt walks the whole focus chain of the window for every widget that leaves it, and not for one that moves within it.
/// So the views are moved into groups, a group leaves the window as one widget, and is divided in the same way until
/// the chain that its last views leave is short.
class ZelSubviewGroup : public QWidget
{
public:
    /// Views in a group are reparented more than once, which few are not worth.
    static bool isWorthwhile(const QList<QPointer<QWidget>> &views) { return views.size() > 4 * groups; }
    ~ZelSubviewGroup() override;
    /// The views lose their parent, but for those that have another one by then.
    static void removeFrom(QWidget *parent, const QList<QPointer<ZelView>> &views);

private:
    static constexpr qsizetype groups = 16;

    static void removeAsGroup(QWidget *parent, const QList<QPointer<ZelView>> &views);
    static void move(QWidget *widget, QWidget *parent, bool *flag, const QPointer<ZelView> &owner);
};
