// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointer>

/// Stores a list of items without its null pointers. Items without a parent become children of `parent`. Answers
/// whether the list differs from the former one.
template<typename Item> bool ZelAssignItems(QList<QPointer<Item>> &member, const QList<Item *> &items, QObject *parent)
{
    QList<QPointer<Item>> assigned;
    assigned.reserve(items.size());
    for (Item *item : items)
        if (item)
            assigned.append(item);
    if (assigned == member)
        return false;
    member = assigned;
    for (Item *item : items)
        if (item && !item->parent())
            item->setParent(parent);
    return true;
}
