// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QMetaType>

#include <array>

/// Reads and writes points, sizes and rectangles, of doubles or integers, as the two or four numbers of which they
/// consist: x and y, width and height, or all four.
struct ZEL_EXPORT ZelGeometryType
{
    using Numbers = std::array<double, 4>;

    QMetaType type;
    QMetaType ofDoubles; ///< the type of the same kind that consists of doubles
    int count;           ///< how many numbers it consists of
    void (*load)(const void *value, Numbers &numbers);
    /// For a type of integers, rounds as Qt's conversions do, limits numbers to 2^30 either way, and turns NaN into 0.
    void (*store)(const Numbers &numbers, void *value);
    bool (*equal)(const void *a, const void *b);

    /// Null for any other type.
    static const ZelGeometryType *find(QMetaType type);
};
