// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <limits>

// Scalars and angles. Angles are in radians unless a name says degrees.

inline constexpr double ZelPi = 3.141592653589793;
inline constexpr double ZelTwoPi = 6.283185307179586;

/// 1, -1, or 0 for zero and NaN.
constexpr double ZelSignum(double v)
{
    return v > 0 ? 1.0 : v < 0 ? -1.0 : 0.0;
}

/// The value, or the bound that it is beyond. The upper bound is compared first: with bounds in the wrong order, a
/// value above `max` gives `max`, and any other value below `min` gives `min`. NaN stays NaN.
constexpr double CGFloatClamp(double v, double min, double max)
{
    return v > max ? max : min > v ? min : v;
}

/// These round as the C library does. They are inline, since without a processor instruction each would be a call
/// there.
constexpr double ZelTruncate(double v)
{
    constexpr double whole = 4503599627370496.0; // 2^52, from which on every number is whole
    return -whole < v && v < whole ? __builtin_copysign(double(qint64(v)), v) : v;
}

constexpr double ZelFloor(double v)
{
    const double truncated = ZelTruncate(v);
    return truncated > v ? truncated - 1 : truncated;
}

constexpr double ZelCeil(double v)
{
    return -ZelFloor(-v);
}

/// Rounds halves away from zero.
constexpr double ZelRound(double v)
{
    const double truncated = ZelTruncate(v);
    const double rest = v - truncated;
    return rest >= 0.5 ? truncated + 1 : rest <= -0.5 ? truncated - 1 : truncated;
}

/// The value wrapped into the half-open interval from a to b. A value inside is returned bit for bit. Any other goes
/// through the fraction of a quotient and carries its rounding error, so that a value that is hardly below `a` may give
/// `b` itself. The answer is NaN for an infinite value and for an empty interval.
constexpr double CGFloatRestrictToInterval(double v, double a, double b)
{
    if (a <= v && v < b)
        return v;
    // An interval from 0, such as a full turn, is the usual one and needs no subtraction and addition.
    if (a == 0) {
        const double q = v / b;
        return (q - ZelFloor(q)) * b;
    }
    const double q = (v - a) / (b - a);
    return (q - ZelFloor(q)) * (b - a) + a;
}

/// The next whole number downwards; a value up to 0.00001 below a whole number counts as that number. Values beyond the
/// integers give the least or greatest integer, and NaN gives 0.
constexpr qint64 CGFloorWithEpsilon(double v)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    const double whole = ZelFloor(v + 0.00001);
    if (whole >= limit)
        return std::numeric_limits<qint64>::max();
    if (whole < -limit)
        return std::numeric_limits<qint64>::min();
    return whole == whole ? qint64(whole) : 0;
}

constexpr double ZelDegreesToRadians(double degrees)
{
    return degrees * ZelPi / 180;
}

constexpr double ZelRadiansToDegrees(double radians)
{
    return radians * 180 / ZelPi;
}

/// The same direction as an angle from 0 to below a full turn; see CGFloatRestrictToInterval.
constexpr double ZelRestrictRadians(double angle)
{
    return CGFloatRestrictToInterval(angle, 0, ZelTwoPi);
}
constexpr double ZelRestrictDegrees(double angle)
{
    return CGFloatRestrictToInterval(angle, 0, 360);
}

/// The signed turn from angle a to angle b, the short way round. At most one full turn is added or subtracted: restrict
/// angles first that are more than three half turns apart.
constexpr double ZelDiffAngle(double a, double b)
{
    const double d = b - a;
    return d > ZelPi ? d - ZelTwoPi : d < -ZelPi ? d + ZelTwoPi : d;
}
