// SPDX-License-Identifier: MIT
#include "ViewController/private/ZelSubviewGroup.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "ViewController/ZelView.h"

#include <QScopeGuard>

/// Views are left in the group only if an exception ended the removal. They must not be deleted with it.
ZelSubviewGroup::~ZelSubviewGroup()
{
    for (auto *view : findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        ZelExceptionReporter::run(view, [view] { view->setParent(nullptr); });
}

void ZelSubviewGroup::removeFrom(QWidget *parent, const QList<QPointer<ZelView>> &views)
{
    const QPointer<QWidget> from(parent);
    const qsizetype size = views.size() <= groups ? views.size() : (views.size() + groups - 1) / groups;
    for (qsizetype first = 0; from && first < views.size(); first += size)
        removeAsGroup(from, views.mid(first, size));
}

void ZelSubviewGroup::removeEach(QWidget *parent, const QList<QPointer<ZelView>> &views)
{
    const QPointer<QWidget> from(parent);
    for (const QPointer<ZelView> &view : views)
        if (from && view && view->parentWidget() == from)
            view->setParent(nullptr);
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
    if (group && views.size() <= groups)
        removeEach(group, views);
    else if (group)
        removeFrom(group, views);
}

/// Reparents the widget while the flag is set. The owner of the flag may die during this.
void ZelSubviewGroup::move(QWidget *widget, QWidget *parent, bool *flag, const QPointer<ZelView> &owner)
{
    bool none = false;
    const ZelMemberScope moving(owner, flag ? *flag : none, true);
    widget->setParent(parent);
}
