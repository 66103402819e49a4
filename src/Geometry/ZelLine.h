// SPDX-License-Identifier: MIT
#pragma once

#include "Geometry/ZelPoint.h"

// A line is its start point and its end point.

/// The length. That of a line parallel to an axis has a sign: it is negative if the end has the smaller coordinate.
inline double ZelLineGetLength(const QPointF &p, const QPointF &q)
{
    const double dx = q.x() - p.x();
    const double dy = q.y() - p.y();
    return dx == 0 ? dy : dy == 0 ? dx : std::hypot(dx, dy);
}

constexpr QPointF ZelLineGetMidPoint(const QPointF &p, const QPointF &q)
{
    return CGPointMid(p, q);
}

/// The point at the parameter, which is limited to 0 (at p) to 1 (at q).
constexpr QPointF ZelLineGetPointAtParameter(const QPointF &p, const QPointF &q, double t)
{
    if (t <= 0)
        return p;
    if (t >= 1)
        return q;
    if (t == 0.5)
        return ZelLineGetMidPoint(p, q);
    return QPointF(p.x() + (q.x() - p.x()) * t, p.y() + (q.y() - p.y()) * t);
}

/// The parameter on the line from p3 to p4 at which it crosses the one through p1 and p2; infinite or NaN for parallel
/// lines.
inline double ZelIntersection(const QPointF &p1, const QPointF &p2, const QPointF &p3, const QPointF &p4)
{
    const double dx = p2.x() - p1.x();
    const double dy = p2.y() - p1.y();
    return ((p1.y() - p3.y()) * dx - (p1.x() - p3.x()) * dy) / ((p4.y() - p3.y()) * dx - (p4.x() - p3.x()) * dy);
}
