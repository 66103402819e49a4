// SPDX-License-Identifier: MIT
#pragma once

#include "Geometry/ZelScalarMath.h"

#include <QPointF>
#include <QRectF>

// The edges of a rectangle whose size may be negative: unlike QRectF's left() and right(), the minimum is always the
// smaller one.

constexpr double CGRectGetMinX(const QRectF &rect)
{
    return rect.width() < 0 ? rect.x() + rect.width() : rect.x();
}

constexpr double CGRectGetMaxX(const QRectF &rect)
{
    return rect.width() < 0 ? rect.x() : rect.x() + rect.width();
}

constexpr double CGRectGetMidX(const QRectF &rect)
{
    return CGRectGetMinX(rect) + (rect.width() < 0 ? -rect.width() : rect.width()) * 0.5;
}

constexpr double CGRectGetMinY(const QRectF &rect)
{
    return rect.height() < 0 ? rect.y() + rect.height() : rect.y();
}

constexpr double CGRectGetMaxY(const QRectF &rect)
{
    return rect.height() < 0 ? rect.y() : rect.y() + rect.height();
}

constexpr double CGRectGetMidY(const QRectF &rect)
{
    return CGRectGetMinY(rect) + (rect.height() < 0 ? -rect.height() : rect.height()) * 0.5;
}

/// The smallest rectangle that holds both points.
constexpr QRectF CGRectFromPoints(const QPointF &p, const QPointF &q)
{
    const double dx = p.x() - q.x();
    const double dy = p.y() - q.y();
    return QRectF(q.x() < p.x() ? q.x() : p.x(), q.y() < p.y() ? q.y() : p.y(), dx < 0 ? -dx : dx, dy < 0 ? -dy : dy);
}

/// The point of the rectangle, its edges included, that is nearest to the given one. A coordinate that is NaN stays so.
constexpr QPointF CGRectClampPoint(const QRectF &rect, const QPointF &p)
{
    return QPointF(CGFloatClamp(p.x(), CGRectGetMinX(rect), CGRectGetMaxX(rect)),
                   CGFloatClamp(p.y(), CGRectGetMinY(rect), CGRectGetMaxY(rect)));
}
