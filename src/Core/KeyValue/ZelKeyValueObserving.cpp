// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueObserving.h"

#include "Core/KeyValue/private/ZelObjectRecord.h"
#include "Core/KeyValue/private/ZelSilentKeys.h"

void ZelAddObserver(QObject *object, ZelKeyValueObserver *observer, const ZelKeyPath &keyPath,
                    ZelKeyValueObservingOptions options, const void *context)
{
    if (object && observer && !keyPath.isEmpty())
        ZelObjectRecord::of(object).addObserver({observer, context, keyPath, options});
}

void ZelRemoveObserver(QObject *object, ZelKeyValueObserver *observer, const ZelKeyPath &keyPath, const void *context)
{
    if (ZelObjectRecord *record = object ? ZelObjectRecord::find(object) : nullptr)
        record->removeObserver(observer, keyPath, context);
}

bool ZelIsObserved(const QObject *object, ZelKey key)
{
    const ZelObservedKey *observed = ZelObjectRecord::observedKey(object, key);
    return observed && observed->isObserved();
}

void ZelWillChangeValueForKey(QObject *object, ZelKey key)
{
    if (ZelObservedKey *observed = ZelObjectRecord::observedKey(object, key))
        observed->willChange(ZelKeyValueChangeSetting, nullptr, true);
}

void ZelDidChangeValueForKey(QObject *object, ZelKey key)
{
    if (ZelObservedKey *observed = ZelObjectRecord::observedKey(object, key))
        observed->didChange(ZelKeyValueChangeSetting, nullptr, true);
}

void ZelWillChangeValueForKey(QObject *object, ZelKeyValueChangeKind kind, const ZelIndexSet &indexes, ZelKey key)
{
    if (ZelObservedKey *observed = ZelObjectRecord::observedKey(object, key))
        observed->willChange(kind, &indexes, true);
}

void ZelDidChangeValueForKey(QObject *object, ZelKeyValueChangeKind kind, const ZelIndexSet &indexes, ZelKey key)
{
    if (ZelObservedKey *observed = ZelObjectRecord::observedKey(object, key))
        observed->didChange(kind, &indexes, true);
}

void ZelRereadSilentProperties()
{
    ZelSilentKeys::reread();
}
