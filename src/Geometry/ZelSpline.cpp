// SPDX-License-Identifier: MIT
#include "Geometry/ZelSpline.h"

#include "Geometry/ZelLine.h"

#include <algorithm>

namespace {

/// Flatness ends the halving long before, except for coordinates that are huge.
constexpr int MaximumDepth = 20;

// Here, a segment is the ways a, b and c from each of its control points to the next one. Its length needs no more, and
// halving these is half the work of halving the points.

/// Made of the coordinates of the ways: six doubles are passed in registers, which structures of them are not.
struct Chord
{
    double x, y;
    double squared;  ///< its length
    double distance; ///< of the handles together, times its length

    Chord(double ax, double ay, double bx, double by, double cx, double cy)
        : x(ax + (bx + cx))
        , y(ay + (by + cy))
        , squared(x * x + y * y)
        , distance(std::abs((bx + cx) * y - (by + cy) * x) + std::abs(cx * y - cy * x))
    {
    }

    /// For NaN, too, of which no half would ever be flat.
    bool isFlat() const { return !(squared * m_distance_tolerance < distance * distance); }
    /// With the sign that a line's length has.
    double length() const
    {
        // The root is a third of the price of a length that cannot overflow.
        const bool isPlain = squared > 1e-280 && squared < 1e280 && x != 0 && y != 0;
        return isPlain ? std::sqrt(squared) : ZelLineGetLength({}, {x, y});
    }
};

double lengthOf(double ax, double ay, double bx, double by, double cx, double cy, int depth)
{
    const Chord chord(ax, ay, bx, by, cx, cy);
    if (chord.isFlat() || depth == 0)
        return chord.length();
    const double middleX = ((ax + bx) + (bx + cx)) * 0.125;
    const double middleY = ((ay + by) + (by + cy)) * 0.125;
    const double first = lengthOf(ax * 0.5, ay * 0.5, (ax + bx) * 0.25, (ay + by) * 0.25, middleX, middleY, depth - 1);
    return first + lengthOf(middleX, middleY, (bx + cx) * 0.25, (by + cy) * 0.25, cx * 0.5, cy * 0.5, depth - 1);
}

/// The ways where speed does not matter.
struct Ways
{
    QPointF a, b, c;

    Ways(const QPointF &p0, const QPointF &p1, const QPointF &p2, const QPointF &p3)
        : a(p1 - p0)
        , b(p2 - p1)
        , c(p3 - p2)
    {
    }
    Chord chord() const { return {a.x(), a.y(), b.x(), b.y(), c.x(), c.y()}; }
    double length(int depth) const { return lengthOf(a.x(), a.y(), b.x(), b.y(), c.x(), c.y(), depth); }
    Ways firstHalf() const { return Ways(a * 0.5, (a + b) * 0.25, middle()); }
    Ways secondHalf() const { return Ways(middle(), (b + c) * 0.25, c * 0.5); }

private:
    Ways(const QPointF &a, const QPointF &b, const QPointF &c)
        : a(a)
        , b(b)
        , c(c)
    {
    }
    QPointF middle() const { return ((a + b) + (b + c)) * 0.125; }
};

double parameterInLine(double lineLength, double length)
{
    return lineLength == 0 ? 0 : std::clamp(length / lineLength, 0.0, 1.0);
}

double parameterOf(const Ways &ways, double length, int depth);

double parameterInHalves(const Ways &ways, double length, int depth)
{
    const Ways firstHalf = ways.firstHalf();
    const Ways secondHalf = ways.secondHalf();
    const double first = firstHalf.length(depth - 1);
    const double total = first + secondHalf.length(depth - 1);
    if (total == 0)
        return 0;
    if (length >= total)
        return 1;
    if (first == length)
        return 0.5;
    if (first > length)
        return 0.5 * parameterOf(firstHalf, length, depth - 1);
    return 0.5 + 0.5 * parameterOf(secondHalf, length - first, depth - 1);
}

double parameterOf(const Ways &ways, double length, int depth)
{
    if (length <= 0)
        return 0;
    const Chord chord = ways.chord();
    return chord.isFlat() || depth == 0 ? parameterInLine(chord.length(), length)
                                        : parameterInHalves(ways, length, depth);
}

} // namespace

// Whether the whole segment is flat, the points decide: the chord between near ends is lost in the ways to and from far
// handles.

double ZelSplineGetTotalLength(const QPointF &p0, const QPointF &p1, const QPointF &p2, const QPointF &p3)
{
    if (ZelSplineIsLinear(p0, p1, p2, p3))
        return ZelLineGetLength(p0, p3);
    const Ways ways(p0, p1, p2, p3);
    const double first = ways.firstHalf().length(MaximumDepth - 1);
    return first + ways.secondHalf().length(MaximumDepth - 1);
}

double ZelSplineParameterForLength(const QPointF &p0, const QPointF &p1, const QPointF &p2, const QPointF &p3,
                                   double length)
{
    if (length <= 0)
        return 0;
    if (ZelSplineIsLinear(p0, p1, p2, p3))
        return parameterInLine(ZelLineGetLength(p0, p3), length);
    return parameterInHalves({p0, p1, p2, p3}, length, MaximumDepth);
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
