// SPDX-License-Identifier: MIT
#include "Core/Values/ZelGeometryType.h"

#include <QRectF>
#include <algorithm>
#include <cmath>

namespace {

using Numbers = ZelGeometryType::Numbers;

Numbers numbersOf(const QPointF &point)
{
    return {point.x(), point.y()};
}

Numbers numbersOf(const QSizeF &size)
{
    return {size.width(), size.height()};
}

Numbers numbersOf(const QRectF &rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

/// Limits numbers for integers, since converting a greater double is undefined. Half of what an integer holds is
/// allowed, so that sums such as x + width fit as well.
Numbers limited(const Numbers &numbers)
{
    constexpr double limit = 1 << 30;
    Numbers result;
    for (size_t i = 0; i < numbers.size(); ++i)
        result[i] = std::isnan(numbers[i]) ? 0 : std::clamp(numbers[i], -limit, limit);
    return result;
}

void assign(QPointF &point, const Numbers &n)
{
    point = QPointF(n[0], n[1]);
}

void assign(QPoint &point, const Numbers &numbers)
{
    const Numbers n = limited(numbers);
    point = QPointF(n[0], n[1]).toPoint();
}

void assign(QSizeF &size, const Numbers &n)
{
    size = QSizeF(n[0], n[1]);
}

void assign(QSize &size, const Numbers &numbers)
{
    const Numbers n = limited(numbers);
    size = QSizeF(n[0], n[1]).toSize();
}

void assign(QRectF &rect, const Numbers &n)
{
    rect = QRectF(n[0], n[1], n[2], n[3]);
}

void assign(QRect &rect, const Numbers &numbers)
{
    const Numbers n = limited(numbers);
    rect = QRectF(n[0], n[1], n[2], n[3]).toRect();
}

template<typename Type, typename OfDoubles> ZelGeometryType entry()
{
    return {
        QMetaType::fromType<Type>(),
        QMetaType::fromType<OfDoubles>(),
        std::is_same_v<OfDoubles, QRectF> ? 4 : 2,
        [](const void *value, Numbers &numbers) { numbers = numbersOf(OfDoubles(*static_cast<const Type *>(value))); },
        [](const Numbers &numbers, void *value) { assign(*static_cast<Type *>(value), numbers); },
        [](const void *a, const void *b) { return *static_cast<const Type *>(a) == *static_cast<const Type *>(b); }};
}

} // namespace

const ZelGeometryType *ZelGeometryType::find(QMetaType type)
{
    static const std::array entries{entry<QPointF, QPointF>(), entry<QPoint, QPointF>(), entry<QSizeF, QSizeF>(),
                                    entry<QSize, QSizeF>(),    entry<QRectF, QRectF>(),  entry<QRect, QRectF>()};
    for (const ZelGeometryType &known : entries) {
        if (known.type == type)
            return &known;
    }
    return nullptr;
}
