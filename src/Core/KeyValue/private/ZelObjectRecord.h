// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/private/ZelObservedKey.h"

#include <QObject>
#include <memory>
#include <vector>

class ZelKeyPathChain;
class ZelNotifyRelay;

/// What the library keeps about an object: its observed keys and the values filed on it. It ends with the object.
///
/// The object itself is not changed: records are found through a hash.
class ZelObjectRecord
{
public:
    /// Null for an object about which nothing is kept.
    static ZelObjectRecord *find(const QObject *object);
    static ZelObjectRecord &of(QObject *object);
    /// Null if nobody has observed the key of that object yet.
    static ZelObservedKey *observedKey(const QObject *object, ZelKey key);
    /// Whether the object announces changes of an observed key itself.
    static bool announcesItself(const QObject *object, ZelKey key);

    /// Ends the record of an object that is being destroyed. Whoever hears of the death may call it, to have the record
    /// gone before anything else reacts. What is thrown meanwhile is reported.
    static void end(const QObject *object) noexcept;

    QObject *object() const { return m_object; }
    /// Null if nobody has observed the key yet.
    ZelObservedKey *observedKey(ZelKey key) const
    {
        for (ZelObservedKey *observed : m_keys) {
            if (observed->key() == key)
                return observed;
        }
        return nullptr;
    }

    void addObserver(const ZelObservedKey::Registration &registration);
    void removeObserver(ZelKeyValueObserver *observer, const ZelKeyPath &path, const void *context);

    std::shared_ptr<void> associatedValue(const void *key) const;
    void setAssociatedValue(const std::shared_ptr<void> &value, const void *key);

    const std::vector<ZelObservedKey *> &observedKeys() const { return m_keys; }

private:
    friend class ZelObjectRecordTable;
    explicit ZelObjectRecord(QObject *object);
    ~ZelObjectRecord();
    void addKeyObserver(const ZelObservedKey::Registration &registration, ZelKey key);
    void removeKeyObserver(ZelKeyValueObserver *observer, const ZelKeyPath &path, const void *context, ZelKey key);

    QObject *m_object;
    std::vector<ZelObservedKey *> m_keys; // never shrinks before the end
    std::vector<std::shared_ptr<ZelKeyPathChain>> m_chains;
    std::vector<std::pair<const void *, std::shared_ptr<void>>> m_associated;
    std::unique_ptr<ZelNotifyRelay> m_relay;
};

/// Announces a write made from outside to a property that cannot announce it.
class ZelGuardedValueChange : public ZelValueChange
{
public:
    ZelGuardedValueChange(QObject *object, ZelKey key)
        : ZelValueChange(object, key, false)
    {
    }
};
