// SPDX-License-Identifier: MIT
#include "Core/Values/private/ZelExactInteger.h"

#include "Core/Values/private/ZelNumberTypes.h"

#include <QtNumeric>
#include <cmath>
#include <limits>

namespace {

constexpr double g_beyond = 18446744073709551616.0; // 2^64

QVariant unsignedSum(qulonglong number, qlonglong addend)
{
    const qulonglong size = addend < 0 ? 0 - qulonglong(addend) : qulonglong(addend);
    qulonglong sum = 0;
    if (addend >= 0)
        return qAddOverflow(number, size, &sum) ? QVariant(g_beyond) : QVariant(sum);
    if (number >= size)
        return number - size;
    return -qlonglong(size - number - 1) - 1;
}

} // namespace

bool ZelExactInteger::isInteger(const QVariant &value)
{
    return ZelNumberTypes::isInteger(value.typeId());
}

bool ZelExactInteger::isWide(QMetaType type)
{
    return ZelNumberTypes::isInteger(type.id()) && type.sizeOf() == qsizetype(sizeof(qlonglong));
}

bool ZelExactInteger::isInexact(double number)
{
    constexpr double largestExact = 9007199254740992.0;                     // 2^53
    return std::abs(number) >= largestExact && std::abs(number) < g_beyond; // from there on, doubles are rounded
}

QVariant ZelExactInteger::sum(const QVariant &integer, qlonglong addend)
{
    if (ZelNumberTypes::isUnsigned(integer.typeId()))
        return unsignedSum(integer.toULongLong(), addend);
    const qlonglong number = integer.toLongLong();
    qlonglong sum = 0;
    if (!qAddOverflow(number, addend, &sum))
        return sum;
    return addend > 0 ? QVariant(qulonglong(number) + qulonglong(addend)) : QVariant(-g_beyond);
}
