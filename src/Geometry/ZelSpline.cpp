// SPDX-License-Identifier: MIT
#include "Geometry/ZelSpline.h"

#include "Geometry/ZelLine.h"

#include <algorithm>
#include <limits>

namespace {

// Halving ends by itself, since a piece is flat at the latest when it is smaller than the flatness. There are two
// exceptions. Far out, where the step from one double to the next comes near to the flatness, a half may be no smaller
// than the whole. And as a piece gets flat at about the root of the curve's extent, a huge curve has too many of them.

/// Curves up to these coordinates and extents, in points, are halved to the end.
constexpr double g_farthest = 0x1p48;
constexpr double g_largest = 0x1p44;
/// The number of times that other curves are halved.
constexpr int g_levelsOfOthers = 20;

struct Segment
{
    QPointF p0, p1, p2, p3;

    bool isFlat() const { return ZelSplineIsLinear(p0, p1, p2, p3); }
    bool isFinite() const
    {
        // Each coordinate times zero is zero, or NaN if the coordinate is infinite or NaN.
        const QPointF sum = p0 * 0 + p1 * 0 + p2 * 0 + p3 * 0;
        return sum.x() == 0 && sum.y() == 0;
    }
    double chord() const
    {
        // A plain root takes a third of the time of a length that cannot overflow.
        const double dx = p3.x() - p0.x();
        const double dy = p3.y() - p0.y();
        const double squared = dx * dx + dy * dy;
        const bool isPlain = squared > 1e-280 && squared < 1e280 && dx != 0 && dy != 0;
        return isPlain ? std::sqrt(squared) : ZelLineGetLength(p0, p3);
    }
    bool endsByItself() const // false for NaN
    {
        const auto isWithin = [](const QPointF &way, double limit) {
            return std::abs(way.x()) < limit && std::abs(way.y()) < limit;
        };
        return isWithin(p0, g_farthest) && isWithin(p1 - p0, g_largest) && isWithin(p2 - p0, g_largest) &&
               isWithin(p3 - p0, g_largest);
    }
};

struct Halves
{
    Segment first, second;

    explicit Halves(const Segment &s)
    {
        const QPointF m01 = CGPointMid(s.p0, s.p1);
        const QPointF m12 = CGPointMid(s.p1, s.p2);
        const QPointF m23 = CGPointMid(s.p2, s.p3);
        const QPointF m012 = CGPointMid(m01, m12);
        const QPointF m123 = CGPointMid(m12, m23);
        const QPointF m = CGPointMid(m012, m123);
        first = {s.p0, m01, m012, m};
        second = {m, m123, m23, s.p3};
    }
};

/// The length of the segment, halved at most so many times; a negative number sets no limit.
double lengthOf(const Segment &segment, int levels)
{
    if (levels == 0 || segment.isFlat())
        return segment.chord();
    const Halves halves(segment);
    const double first = lengthOf(halves.first, levels - 1);
    return first + lengthOf(halves.second, levels - 1);
}

double parameterOf(const Segment &segment, double length, int levels)
{
    if (length <= 0)
        return 0;
    if (levels == 0 || segment.isFlat()) {
        const double chord = segment.chord();
        return chord == 0 ? 0 : std::clamp(length / chord, 0.0, 1.0);
    }
    const Halves halves(segment);
    const double first = lengthOf(halves.first, levels - 1);
    const double total = first + lengthOf(halves.second, levels - 1);
    if (total == 0)
        return 0;
    if (length >= total)
        return 1;
    if (first == length)
        return 0.5;
    if (first > length)
        return 0.5 * parameterOf(halves.first, length, levels - 1);
    return 0.5 + 0.5 * parameterOf(halves.second, length - first, levels - 1);
}

} // namespace

double ZelSplineGetTotalLength(const QPointF &p0, const QPointF &p1, const QPointF &p2, const QPointF &p3)
{
    const Segment segment{p0, p1, p2, p3};
    if (segment.endsByItself())
        return lengthOf(segment, -1);
    return segment.isFinite() ? lengthOf(segment, g_levelsOfOthers) : std::numeric_limits<double>::quiet_NaN();
}

double ZelSplineParameterForLength(const QPointF &p0, const QPointF &p1, const QPointF &p2, const QPointF &p3,
                                   double length)
{
    const Segment segment{p0, p1, p2, p3};
    if (length <= 0 || segment.endsByItself())
        return parameterOf(segment, length, -1);
    return segment.isFinite() ? parameterOf(segment, length, g_levelsOfOthers)
                              : std::numeric_limits<double>::quiet_NaN();
}

void ZelSplineGetSubdivisionAtParameter(bool first, QPointF &out0, QPointF &out1, QPointF &out2, QPointF &out3,
                                        QPointF p0, QPointF p1, QPointF p2, QPointF p3, double t)
{
    const QPointF a = ZelLineGetPointAtParameter(p0, p1, t);
    const QPointF b = ZelLineGetPointAtParameter(p1, p2, t);
    const QPointF c = ZelLineGetPointAtParameter(p2, p3, t);
    const QPointF d = ZelLineGetPointAtParameter(a, b, t);
    const QPointF e = ZelLineGetPointAtParameter(b, c, t);
    const QPointF f = ZelLineGetPointAtParameter(d, e, t);
    out0 = first ? p0 : f;
    out1 = first ? a : e;
    out2 = first ? d : c;
    out3 = first ? f : p3;
}
