// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

/// Arithmetic with integers of 64 bits, which a double does not hold beyond 2^53.
class ZelExactInteger
{
public:
    /// Whether the value is of a built-in type of integers.
    static bool isInteger(const QVariant &value);
    /// Whether it is of a type that has integers which a double does not hold.
    static bool isWide(QMetaType type);
    /// Whether the number, a double, is beyond those that stand for one integer only.
    static bool isInexact(double number);
    /// An integer plus another one, as a qlonglong or qulonglong. A sum that no 64 bits hold is a double beyond all of
    /// them.
    static QVariant sum(const QVariant &integer, qlonglong addend);
};
