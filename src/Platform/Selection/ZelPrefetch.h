// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

/// Called in a walk through many objects, which lie anywhere in memory: has the processor fetch the one that is due a
/// few turns after this index.
inline void ZelPrefetch([[maybe_unused]] const QList<QPointer<QObject>> &objects, [[maybe_unused]] qsizetype index)
{
#ifdef __GNUC__
    constexpr qsizetype ahead = 12;
    if (objects.size() - index > ahead)
        __builtin_prefetch(objects.at(index + ahead).data());
#endif
}
