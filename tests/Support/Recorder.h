// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyValueObserving.h"
#include <QList>
#include <functional>

/// Remembers the changes that it is told.
class Recorder : public ZelKeyValueObserver
{
public:
    QList<ZelKeyValueChange> changes;
    std::function<void()> react;
    int count() const { return int(changes.size()); }
    void observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &change, const void *) override
    {
        changes.append(change);
        if (react)
            react();
    }
};
