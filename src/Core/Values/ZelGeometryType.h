// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QMetaType>

#include <array>

/// Reads and writes points, sizes, rectangles, margins and lines, of doubles or integers, and vectors as the two to
/// four numbers of which they consist: x and y, width and height, or all four; left, top, right and bottom; x and y of
/// both ends; x, y, z and w.
struct ZEL_EXPORT ZelGeometryType
{
    using Numbers = std::array<double, 4>;

    QMetaType type;
    QMetaType ofDoubles;              ///< the type of the same kind that consists of doubles
    int count;                        ///< how many numbers it consists of
    std::array<const char *, 4> keys; ///< what the numbers are called in key paths; null for those that it lacks
    void (*load)(const void *value, Numbers &numbers);
    /// For a type of integers, rounds as Qt's conversions do, limits numbers to 2^30 either way, and turns NaN into 0.
    void (*store)(const Numbers &numbers, void *value);
    bool (*equal)(const void *a, const void *b);

    /// Whether values of both kinds are edited alike: points, sizes and vectors of two numbers are.
    bool isLike(const ZelGeometryType &other) const
    {
        return count == other.count && (count == 2 || ofDoubles == other.ofDoubles);
    }

    /// The place of the number that is called so; -1 if there is none.
    int indexOf(QByteArrayView key) const;

    /// Null for any other type.
    static const ZelGeometryType *find(QMetaType type);
};
