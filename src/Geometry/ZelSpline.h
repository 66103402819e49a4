// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QPointF>

// A cubic spline segment is given by its start p0, its two handles p1 and p2, and its end p3. Its parameter t runs from
// 0 at the start to 1 at the end.
//
// It is measured by halving it until every piece is flat, and taking the pieces for straight lines. A piece is flat by
// a fixed distance. A smooth curve in pixels or points is therefore measured to a fraction of one, whatever its size (a
// curve with a hairpin less well), and a curve as small as a point is taken for straight. The rules for flat pieces and
// for lines have two consequences: a segment that ends where it starts counts as flat and has no length (split a loop
// first), and a flat piece that is parallel to an axis and runs towards smaller coordinates counts negative (see
// ZelLineGetLength).

/// The flatness factor.
inline constexpr double m_distance_tolerance = 0.5;

/// The weights of p0, p1, p2 and p3 at the parameter.
constexpr double ZelSplineTerm1(double t)
{
    return (1 - t) * (1 - t) * (1 - t);
}
constexpr double ZelSplineTerm2(double t)
{
    return t * 3 * ((1 - t) * (1 - t));
}
constexpr double ZelSplineTerm3(double t)
{
    return 3 * t * t * (1 - t);
}
constexpr double ZelSplineTerm4(double t)
{
    return t * t * t;
}

/// The point at the parameter, which is limited to 0 to 1.
constexpr QPointF ZelSplineGetPointAtParameter(const QPointF &p0, const QPointF &p1, const QPointF &p2,
                                               const QPointF &p3, double t)
{
    if (t <= 0)
        return p0;
    if (t >= 1)
        return p3;
    const double w1 = ZelSplineTerm1(t);
    const double w2 = ZelSplineTerm2(t);
    const double w3 = ZelSplineTerm3(t);
    const double w4 = ZelSplineTerm4(t);
    return QPointF(p3.x() * w4 + (p1.x() * w2 + p0.x() * w1 + p2.x() * w3),
                   p3.y() * w4 + (p1.y() * w2 + p0.y() * w1 + p2.y() * w3));
}

/// Whether the segment counts as straight: the distances of its handles from its chord together are at most the root of
/// m_distance_tolerance. Where along the chord the handles lie does not matter. False if a coordinate is NaN.
constexpr bool ZelSplineIsLinear(const QPointF &p0, const QPointF &p1, const QPointF &p2, const QPointF &p3)
{
    const double dx = p3.x() - p0.x();
    const double dy = p3.y() - p0.y();
    const double cross1 = (p1.x() - p3.x()) * dy - (p1.y() - p3.y()) * dx;
    const double cross2 = (p2.x() - p3.x()) * dy - (p2.y() - p3.y()) * dx;
    const double d = (cross1 < 0 ? -cross1 : cross1) + (cross2 < 0 ? -cross2 : cross2);
    return (dx * dx + dy * dy) * m_distance_tolerance >= d * d;
}

/// The arc length. The effort grows with the root of the curve's size. Curves of more than 10^13 points, and those more
/// than 10^14 away from the origin, are halved twenty times, which still gives the length to ten digits. NaN where
/// a coordinate is infinite or NaN.
ZEL_EXPORT double ZelSplineGetTotalLength(const QPointF &p0, const QPointF &p1, const QPointF &p2, const QPointF &p3);

/// The parameter at which the arc from p0 has the given length: 0 for a length of 0 or less, 1 for the whole length or
/// more. Within a flat piece it is proportional to the way along the chord.
ZEL_EXPORT double ZelSplineParameterForLength(const QPointF &p0, const QPointF &p1, const QPointF &p2,
                                              const QPointF &p3, double length);

/// Stores the control points of the piece from 0 to t if `first`, and of that from t to 1 otherwise. The parameter is
/// limited to 0 to 1; at these ends one of the pieces is a point. The results may be the same variables as the segment.
ZEL_EXPORT void ZelSplineGetSubdivisionAtParameter(bool first, QPointF &out0, QPointF &out1, QPointF &out2,
                                                   QPointF &out3, QPointF p0, QPointF p1, QPointF p2, QPointF p3,
                                                   double t);
