// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKey.h"

#include <QVariant>

/// Reads and writes keys of values that are not objects: maps, gadgets, and points, sizes and rectangles of doubles.
class ZelValueTypeAccess
{
public:
    /// Answers false if the value has no such key. A map has every key; without such an entry its value is absent.
    static bool read(const QVariant &container, ZelKey key, QVariant *value);
    /// Answers false if the container has no such key or the value cannot be stored; numbers never wrap.
    static bool write(QVariant &container, ZelKey key, const QVariant &value);

    struct Property
    {
        QMetaType type; ///< invalid if the value has no such key
        bool isWritable = false;
    };
    static Property property(const QVariant &container, ZelKey key);
};
