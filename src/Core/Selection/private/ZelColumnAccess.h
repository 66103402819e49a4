// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Selection/ZelColumnStore.h"

#include <QPointer>

#include <cstddef>
#include <vector>

/// Reads and writes the values of neighbours in a list of objects through the store of their class. It is made for one
/// walk through the list.
class ZelColumnAccess
{
public:
    ZelColumnAccess(ZelKey key, QMetaType type);

    /// Takes the living objects of one class with which the list begins, at most so many. Answers how many these are; 0
    /// if their class has no store, or if values of the type are not for stores.
    qsizetype take(const QPointer<QObject> *objects, qsizetype most)
    {
        return m_isPossible ? takeObjects(objects, most) : 0;
    }
    /// Reads the values of the objects that were taken. Null if the store does not have the key; it is not asked again.
    const std::byte *read();
    /// Writes their values, which lie one after the other. Answers false if nothing is written; the store is not asked
    /// again.
    bool write(const void *values);
    /// Writes one value to all of them.
    bool writeToAll(const void *value);
    /// The memory of a value among those that were read.
    const void *valueAt(const std::byte *values, qsizetype index) const { return values + index * m_type.sizeOf(); }

private:
    qsizetype takeObjects(const QPointer<QObject> *objects, qsizetype most);

    ZelKey m_key;
    QMetaType m_type;
    bool m_isPossible;
    ZelColumnStore *m_store = nullptr; // of the objects
    std::vector<QObject *> m_objects;
    std::vector<std::byte> m_values;
};
