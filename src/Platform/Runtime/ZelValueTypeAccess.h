// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKey.h"

#include <QVariant>

/// Keys of values that are not objects: maps, gadgets, points, sizes and rectangles.
class ZelValueTypeAccess
{
public:
    /// False where the value has no such key. A map answers every key: absent where it has no such entry.
    static bool read(const QVariant &container, ZelKey key, QVariant *value);
    /// False as well where the value cannot be stored; numbers never wrap.
    static bool write(QVariant &container, ZelKey key, const QVariant &value);

    struct Property
    {
        QMetaType type; ///< invalid where the value has no such key
        bool isWritable = false;
    };
    static Property property(const QVariant &container, ZelKey key);
};
