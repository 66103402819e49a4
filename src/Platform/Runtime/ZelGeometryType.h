// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>

#include <array>

/// Points, sizes and rectangles, of doubles and of integers, as the two or four numbers of which they consist: x and y,
/// width and height, or all of them.
struct ZelGeometryType
{
    using Numbers = std::array<double, 4>;

    QMetaType type;
    QMetaType ofDoubles; ///< the type of the same kind that takes any numbers
    int count;           ///< of its numbers
    void (*load)(const void *value, Numbers &numbers);
    /// Rounds for a type of integers as Qt's conversions do; numbers beyond 2^30 become that, and NaN becomes 0.
    void (*store)(const Numbers &numbers, void *value);
    bool (*equal)(const void *a, const void *b);

    /// Null for any other type.
    static const ZelGeometryType *find(QMetaType type);
};
