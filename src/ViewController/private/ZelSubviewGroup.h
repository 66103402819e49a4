// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

class ZelView;

/// Takes many uninstalled views out of a window. The time does not grow with the square of their number.
///
/// Qt walks the whole focus chain of the window for every widget that leaves the window, but not for a widget that
/// moves within it. So the views are moved into groups, and each group leaves the window as one widget. Outside, a
/// large group is divided in the same way, until the remaining chains are short.
class ZelSubviewGroup : public QWidget
{
public:
    /// Whether groups pay off: for a few views, reparenting them twice costs more than the walks.
    static bool isWorthwhile(const QList<QPointer<QWidget>> &views) { return views.size() > groups / 4; }
    ~ZelSubviewGroup() override;
    /// Takes the views out of the parent. Views that have got another parent meanwhile stay there.
    static void removeFrom(QWidget *parent, const QList<QPointer<ZelView>> &views);

private:
    static constexpr qsizetype groups = 16;

    static void removeEach(QWidget *parent, const QList<QPointer<ZelView>> &views);
    static void removeAsGroup(QWidget *parent, const QList<QPointer<ZelView>> &views);
    static void move(QWidget *widget, QWidget *parent, bool *flag, const QPointer<ZelView> &owner);
};
