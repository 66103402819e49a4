// SPDX-License-Identifier: MIT
#include "Core/Values/ZelGeometryType.h"

#include <QLineF>
#include <QMarginsF>
#include <QRectF>
#include <QVector4D>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

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

Numbers numbersOf(const QMarginsF &margins)
{
    return {margins.left(), margins.top(), margins.right(), margins.bottom()};
}

Numbers numbersOf(const QLineF &line)
{
    return {line.x1(), line.y1(), line.x2(), line.y2()};
}

/// The double that has the shortest digits which mean this float: 0.1, not 0.10000000149.
double decimalOf(float number)
{
    char text[32];
    double decimal = number;
    const auto written = std::to_chars(text, text + sizeof text, number);
    if (std::isfinite(number))
        std::from_chars(text, written.ptr, decimal);
    return decimal;
}

template<typename Vector> Numbers componentsOf(const Vector &vector, int count)
{
    Numbers numbers{};
    for (int i = 0; i < count; ++i)
        numbers[size_t(i)] = decimalOf(vector[i]);
    return numbers;
}

Numbers numbersOf(const QVector2D &vector)
{
    return componentsOf(vector, 2);
}

Numbers numbersOf(const QVector3D &vector)
{
    return componentsOf(vector, 3);
}

Numbers numbersOf(const QVector4D &vector)
{
    return componentsOf(vector, 4);
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

void assign(QMarginsF &margins, const Numbers &n)
{
    margins = QMarginsF(n[0], n[1], n[2], n[3]);
}

void assign(QMargins &margins, const Numbers &numbers)
{
    const Numbers n = limited(numbers);
    margins = QMarginsF(n[0], n[1], n[2], n[3]).toMargins();
}

void assign(QLineF &line, const Numbers &n)
{
    line = QLineF(n[0], n[1], n[2], n[3]);
}

void assign(QLine &line, const Numbers &numbers)
{
    const Numbers n = limited(numbers);
    line = QLineF(n[0], n[1], n[2], n[3]).toLine();
}

template<typename Vector> void assignComponents(Vector &vector, const Numbers &numbers, int count)
{
    constexpr double largest = std::numeric_limits<float>::max();
    for (int i = 0; i < count; ++i)
        vector[i] = float(std::clamp(numbers[size_t(i)], -largest, largest));
}

void assign(QVector2D &vector, const Numbers &numbers)
{
    assignComponents(vector, numbers, 2);
}

void assign(QVector3D &vector, const Numbers &numbers)
{
    assignComponents(vector, numbers, 3);
}

void assign(QVector4D &vector, const Numbers &numbers)
{
    assignComponents(vector, numbers, 4);
}

constexpr std::array<const char *, 4> g_point = {"x", "y"};
constexpr std::array<const char *, 4> g_size = {"width", "height"};
constexpr std::array<const char *, 4> g_rectangle = {"x", "y", "width", "height"};
constexpr std::array<const char *, 4> g_margins = {"left", "top", "right", "bottom"};
constexpr std::array<const char *, 4> g_line = {"x1", "y1", "x2", "y2"};
constexpr std::array<const char *, 4> g_vector3 = {"x", "y", "z"};
constexpr std::array<const char *, 4> g_vector4 = {"x", "y", "z", "w"};

template<typename Type, typename OfDoubles> ZelGeometryType entry(const std::array<const char *, 4> &keys)
{
    (void)QMetaType::fromType<Type>().id(); // so that it is found by its name
    return {
        QMetaType::fromType<Type>(),
        QMetaType::fromType<OfDoubles>(),
        int(std::find(keys.begin(), keys.end(), nullptr) - keys.begin()),
        keys,
        [](const void *value, Numbers &numbers) { numbers = numbersOf(OfDoubles(*static_cast<const Type *>(value))); },
        [](const Numbers &numbers, void *value) { assign(*static_cast<Type *>(value), numbers); },
        [](const void *a, const void *b) { return *static_cast<const Type *>(a) == *static_cast<const Type *>(b); }};
}

} // namespace

const ZelGeometryType *ZelGeometryType::find(QMetaType type)
{
    static const std::array entries{
        entry<QPointF, QPointF>(g_point),       entry<QPoint, QPointF>(g_point),
        entry<QSizeF, QSizeF>(g_size),          entry<QSize, QSizeF>(g_size),
        entry<QRectF, QRectF>(g_rectangle),     entry<QRect, QRectF>(g_rectangle),
        entry<QMarginsF, QMarginsF>(g_margins), entry<QMargins, QMarginsF>(g_margins),
        entry<QLineF, QLineF>(g_line),          entry<QLine, QLineF>(g_line),
        entry<QVector2D, QVector2D>(g_point),   entry<QVector3D, QVector3D>(g_vector3),
        entry<QVector4D, QVector4D>(g_vector4),
    };
    for (const ZelGeometryType &known : entries) {
        if (known.type == type)
            return &known;
    }
    return nullptr;
}

int ZelGeometryType::indexOf(QByteArrayView key) const
{
    const auto end = keys.begin() + count;
    const auto found = std::find_if(keys.begin(), end, [key](const char *known) { return key == known; });
    return found == end ? -1 : int(found - keys.begin());
}
