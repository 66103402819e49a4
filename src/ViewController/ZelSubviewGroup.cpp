// SPDX-License-Identifier: MIT
#include "ViewController/ZelSubviewGroup.h"

#include "Platform/Runtime/ZelExceptionReporter.h"
#include "ViewController/ZelView.h"

#include <QScopeGuard>

/// Nothing is left in it unless an exception ends the removal.
ZelSubviewGroup::~ZelSubviewGroup()
{
    for (auto *view : findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        ZelExceptionReporter::run(view, [view] { view->setParent(nullptr); });
}

void ZelSubviewGroup::removeFrom(QWidget *parent, const QList<QPointer<ZelView>> &views)
{
    const QPointer<QWidget> from(parent);
    if (views.size() <= groups) {
        for (const QPointer<ZelView> &view : views)
            if (from && view && view->parentWidget() == from)
                view->setParent(nullptr);
        return;
    }
    const qsizetype size = (views.size() + groups - 1) / groups;
    for (qsizetype first = 0; from && first < views.size(); first += size)
        removeAsGroup(from, views.mid(first, size));
}

void ZelSubviewGroup::removeAsGroup(QWidget *parent, const QList<QPointer<ZelView>> &views)
{
    const QPointer<ZelSubviewGroup> group = new ZelSubviewGroup;
    const auto end = qScopeGuard([&group] { delete group; });
    const QPointer<QWidget> from(parent);
    auto *view = qobject_cast<ZelView *>(parent);
    move(group, parent, view ? &view->m_grouping : nullptr, view);
    for (const QPointer<ZelView> &moved : views)
        if (from && group && moved && moved->parentWidget() == from)
            move(moved, group, &moved->m_moving, moved);
    if (from && group)
        move(group, nullptr, view ? &view->m_grouping : nullptr, view);
    if (group)
        removeFrom(group, views);
}

/// The flag is set meanwhile; its owner may die of it.
void ZelSubviewGroup::move(QWidget *widget, QWidget *parent, bool *flag, const QPointer<ZelView> &owner)
{
    const auto end = qScopeGuard([&] {
        if (owner)
            *flag = false;
    });
    if (flag)
        *flag = true;
    widget->setParent(parent);
}
