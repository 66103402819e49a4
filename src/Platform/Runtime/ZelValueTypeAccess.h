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
    static bool write(QVariant &container, ZelKey key, const QVariant &value);
};
