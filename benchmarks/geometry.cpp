// SPDX-License-Identifier: MIT
#include "Bench.h"

#include "Geometry/ZelSnapUtilities.h"
#include "Geometry/ZelSpline.h"

#include <QPainterPath>
#include <cmath>

namespace {

struct Curve
{
    const char *name;
    QPointF p0, p1, p2, p3;

    QPainterPath path() const
    {
        QPainterPath path(p0);
        path.cubicTo(p1, p2, p3);
        return path;
    }
    double length() const { return ZelSplineGetTotalLength(p0, p1, p2, p3); }
};

const Curve curves[] = {
    {"arc", {100, 0}, {100, 55.2}, {55.2, 100}, {0, 100}},
    {"loop", {0, 0}, {200, 100}, {-100, 100}, {100, 0}},
    {"flat", {0, 0}, {33, 0.2}, {66, 0.2}, {100, 1}},
    {"S", {0, 0}, {100, 10}, {0, 90}, {100, 100}},
    {"of 10 points", {0, 0}, {0, 5.5}, {4.5, 10}, {10, 10}},
    {"of 5,000 points", {0, 0}, {0, 2750}, {2250, 5000}, {5000, 5000}},
};

/// Repeats what takes less than a microsecond.
template<typename Function> Bench::Work repeated(int count, Function function)
{
    return Bench::Work([=] {
        for (int i = 0; i < count; ++i)
            Bench::keep(function(i));
    });
}

/// The obvious form, with the library's roundings chosen by mode.
QRectF snapByHand(const QRectF &rect, int mode)
{
    using Rounding = double (*)(double);
    static const Rounding minimum[] = {std::ceil, std::floor, std::round};
    static const Rounding maximum[] = {std::floor, std::ceil, std::round};
    const QRectF r = rect.normalized();
    const QPointF topLeft(minimum[mode](r.left()), minimum[mode](r.top()));
    return QRectF(topLeft, QPointF(maximum[mode](r.right()), maximum[mode](r.bottom())));
}

} // namespace

static void splineLength()
{
    for (const Curve &curve : curves) {
        const QPainterPath path = curve.path();
        Bench::expect(std::abs(curve.length() - path.length()) < 0.01 * path.length() + 0.5, "the same length");
        Bench::compare(QStringLiteral("length of a spline: %1").arg(QLatin1String(curve.name)), 0.35,
                       repeated(100, [&](int) { return curve.length(); }),
                       repeated(100, [&](int) { return path.length(); }), Bench::small);
    }
}
ZEL_BENCHMARK(splineLength)

static void splineParameter()
{
    for (const Curve &curve : curves) {
        const QPainterPath path = curve.path();
        const double length = path.length();
        const auto ours = [&](int i) {
            return ZelSplineParameterForLength(curve.p0, curve.p1, curve.p2, curve.p3, length * i / 20);
        };
        const auto reference = [&](int i) { return path.percentAtLength(length * i / 20); };
        Bench::compare(QStringLiteral("parameter for a length: %1").arg(QLatin1String(curve.name)), 0.1,
                       repeated(20, ours), repeated(20, reference), Bench::small);
    }
}
ZEL_BENCHMARK(splineParameter)

static void snapRectangles()
{
    constexpr int count = 300;
    QList<QRectF> rects;
    for (int i = 0; i < count; ++i)
        rects.append(QRectF(i * 1.37 - 150, i * 0.73 - 80, i * 0.11 + 3.3, i * 0.19 + 4.7));
    const auto mode = [](int i) { return i % 3; };
    for (int i = 0; i < count; ++i) {
        const QRectF rect = ZelSnapRect(rects[i], ZelSnapMode(mode(i)), false);
        Bench::expect(rect == snapByHand(rects[i], mode(i)), "the same rectangle");
    }
    Bench::compare(QStringLiteral("snap rectangles, modes mixed"), 0.5,
                   repeated(count, [&](int i) { return ZelSnapRect(rects.at(i), ZelSnapMode(mode(i)), false); }),
                   repeated(count, [&](int i) { return snapByHand(rects.at(i), mode(i)); }), Bench::small);
    for (int m = 0; m < 3; ++m) {
        Bench::compare(QStringLiteral("snap rectangles, mode %1").arg(m), 0.5,
                       repeated(count, [&](int i) { return ZelSnapRect(rects.at(i), ZelSnapMode(m), false); }),
                       repeated(count, [&](int i) { return snapByHand(rects.at(i), m); }), Bench::small);
    }
}
ZEL_BENCHMARK(snapRectangles)
