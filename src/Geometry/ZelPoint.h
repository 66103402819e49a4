// SPDX-License-Identifier: MIT
#pragma once

#include "Geometry/ZelScalarMath.h"

#include <QPointF>
#include <cmath>

// Points as vectors. Unlike QPointF's own comparison, nothing here rounds: a tiny vector is not the zero vector.

constexpr bool CGPointIsZero(const QPointF &p)
{
    return p.x() == 0 && p.y() == 0;
}

constexpr QPointF CGPointAdd(const QPointF &p, const QPointF &q)
{
    return QPointF(p.x() + q.x(), p.y() + q.y());
}

constexpr QPointF CGPointSub(const QPointF &p, const QPointF &q)
{
    return QPointF(p.x() - q.x(), p.y() - q.y());
}

/// The opposite vector; 0 becomes -0.
constexpr QPointF CGPointInvert(const QPointF &p)
{
    return QPointF(-p.x(), -p.y());
}

/// The vector turned by a right angle: (1, 0) becomes (0, -1).
constexpr QPointF CGPointOrthogonal(const QPointF &p)
{
    return QPointF(p.y(), -p.x());
}

constexpr QPointF CGPointScale(const QPointF &p, double s)
{
    return QPointF(p.x() * s, p.y() * s);
}

/// p + q s
constexpr QPointF CGPointScaleAdd(const QPointF &p, const QPointF &q, double s)
{
    return CGPointAdd(p, CGPointScale(q, s));
}

/// p + q1 s + q2 t
constexpr QPointF CGPointScaleAdd2(const QPointF &p, const QPointF &q1, double s, const QPointF &q2, double t)
{
    return CGPointScaleAdd(CGPointScaleAdd(p, q1, s), q2, t);
}

/// p + q1 s + q2 t + q3 u
constexpr QPointF CGPointScaleAdd3(const QPointF &p, const QPointF &q1, double s, const QPointF &q2, double t,
                                   const QPointF &q3, double u)
{
    return CGPointScaleAdd(CGPointScaleAdd2(p, q1, s, q2, t), q3, u);
}

constexpr double CGPointDot(const QPointF &p, const QPointF &q)
{
    return p.x() * q.x() + p.y() * q.y();
}

/// The length of the vector. Its squares do not overflow: the length of (1e300, 0) is 1e300.
inline double CGPointLength(const QPointF &p)
{
    return std::hypot(p.x(), p.y());
}

constexpr double CGPointLengthSquared(const QPointF &p)
{
    return p.x() * p.x() + p.y() * p.y();
}

inline double CGPointDistanceToPoint(const QPointF &p, const QPointF &q)
{
    return std::hypot(p.x() - q.x(), p.y() - q.y());
}

/// The unit vector of the same direction; the zero vector stays as it is.
inline QPointF CGPointNormalize(const QPointF &p)
{
    const double length = CGPointLength(p);
    return length == 0 ? p : QPointF(p.x() / length, p.y() / length);
}

/// The vector of the same direction and of the given length; a negative length turns it round. The zero vector stays as
/// it is.
inline QPointF CGPointScaleToLength(const QPointF &p, double s)
{
    const double length = CGPointLength(p);
    return length == 0 ? p : CGPointScale(p, s / length);
}

constexpr QPointF CGPointMid(const QPointF &p, const QPointF &q)
{
    return QPointF((p.x() + q.x()) * 0.5, (p.y() + q.y()) * 0.5);
}

/// The unit vector of an angle.
inline QPointF CGPointAngle(double angle)
{
    return QPointF(std::cos(angle), std::sin(angle));
}

/// The angle of the vector, restricted to a full turn; 0 for the zero vector.
inline double CGPointGetAngle(const QPointF &p)
{
    return ZelRestrictRadians(std::atan2(p.y(), p.x()));
}

/// The signed turn from the angle to the direction from p to q.
inline double CGPointDiffAngle(double angle, const QPointF &p, const QPointF &q)
{
    return ZelDiffAngle(ZelRestrictRadians(angle), CGPointGetAngle(CGPointSub(q, p)));
}

/// The direction from the centre to p as on a clock: 0 is towards smaller y, which is up on screen, and angles grow
/// clockwise.
inline double CGAngleWithPointAndCenter(const QPointF &p, const QPointF &center)
{
    return ZelRestrictRadians(std::atan2(p.x() - center.x(), center.y() - p.y()));
}
