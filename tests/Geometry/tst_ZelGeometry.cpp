// SPDX-License-Identifier: MIT
#include "Geometry/Digits.h"
#include "Geometry/ZelLine.h"
#include "Geometry/ZelRectAnchor.h"
#include "Geometry/ZelSpline.h"
#include "Support/TableRow.h"

#include <cmath>
#include <random>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Quarter = 1.5707963267948966;

bool near(double a, double b)
{
    return std::abs(a - b) < 1e-13;
}

struct Curve
{
    QPointF p0, p1, p2, p3;

    double length() const { return ZelSplineGetTotalLength(p0, p1, p2, p3); }
    double parameter(double length) const { return ZelSplineParameterForLength(p0, p1, p2, p3, length); }
    QPointF at(double t) const { return ZelSplineGetPointAtParameter(p0, p1, p2, p3, t); }
    Curve scaled(double s) const { return {p0 * s, p1 * s, p2 * s, p3 * s}; }
    Curve piece(bool first, double t) const
    {
        Curve c = *this;
        ZelSplineGetSubdivisionAtParameter(first, c.p0, c.p1, c.p2, c.p3, c.p0, c.p1, c.p2, c.p3, t);
        return c;
    }
    QString points() const { return text(p0, p1, p2, p3); }
};

/// The plain form of the halving.
double halvedLength(const Curve &c)
{
    if (ZelSplineIsLinear(c.p0, c.p1, c.p2, c.p3))
        return ZelLineGetLength(c.p0, c.p3);
    return halvedLength(c.piece(true, 0.5)) + halvedLength(c.piece(false, 0.5));
}

const Curve Arc{{1, 0}, {1, 0.552}, {0.552, 1}, {0, 1}};
const Curve Loop{{0, 0}, {2, 1}, {-1, 1}, {1, 0.1}};
const Curve Wave{{0, 0}, {1, 0.1}, {0, 0.9}, {1, 1}};

} // namespace

class tst_ZelGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pointsAreVectors()
    {
        QCOMPARE(text(CGPointAdd({1, 2}, {10, 20}), CGPointSub({1, 2}, {10, 30})), "11 22, -9 -28");
        QCOMPARE(text(CGPointOrthogonal({3, 5}), CGPointMid({-1, 2}, {4, 6})), "5 -3, 1.5 4");
        QCOMPARE(text(CGPointScaleAdd({1, 2}, {3, 5}, 10)), "31 52");
        QCOMPARE(text(CGPointScaleAdd2({1, 2}, {3, 5}, 10, {7, 11}, 100)), "731 1152");
        QCOMPARE(text(CGPointScaleAdd3({1, 2}, {3, 5}, 10, {7, 11}, 100, {13, 17}, 1000)), "13731 18152");
        QCOMPARE(text(CGPointDot({2, 3}, {5, -7}), CGPointLengthSquared({-2, 3})), "-11, 13");
        const QPointF inverted = CGPointInvert({0, 2});
        QVERIFY(inverted.x() == 0 && std::signbit(inverted.x()) && inverted.y() == -2);
        QVERIFY(CGPointIsZero({0, -0.0}) && !CGPointIsZero({1e-300, 0}) && !CGPointIsZero({0, NaN}));
        // Lengths neither overflow nor lose the zero vector.
        QCOMPARE(text(CGPointLength({0x3p700, 0x4p700}), CGPointLength({-Infinity, NaN})), text(0x5p700, Infinity));
        QCOMPARE(text(CGPointDistanceToPoint({1, 1}, {-2, 5})), "5");
        QCOMPARE(text(CGPointNormalize({0, -8}), CGPointNormalize({0, 0})), "0 -1, 0 0");
        QCOMPARE(text(CGPointScaleToLength({3, -4}, 10), CGPointScaleToLength({3, -4}, -5)), "6 -8, -3 4");
        QCOMPARE(text(CGPointScaleToLength({0, 0}, 10)), "0 0");
    }

    void anglesAreMeasured()
    {
        const auto check = [](const QPointF &direction, int eighths) {
            const TableRow row(text(direction));
            const QPointF center(10, -20);
            QVERIFY(near(CGPointGetAngle(direction), eighths * Quarter / 2));
            // On a clock it is a quarter further.
            QVERIFY(near(CGAngleWithPointAndCenter(center + direction, center), (eighths + 2) % 8 * Quarter / 2));
            const QPointF unit = CGPointAngle(eighths * Quarter / 2);
            QVERIFY(near(CGPointDistanceToPoint(unit, CGPointNormalize(direction)), 0));
        };
        check({2, 0}, 0);
        check({2, 2}, 1);
        check({0, 1}, 2);
        check({-1, 0}, 4);
        check({0, -3}, 6);
        check({1, -1}, 7);
        QVERIFY(near(CGPointDiffAngle(0, {5, 5}, {5, 9}), Quarter));
        QVERIFY(near(CGPointDiffAngle(9 * Quarter, {0, 0}, {1, -1}), -1.5 * Quarter)); // more than a turn
        QVERIFY(near(ZelDiffAngle(0.1, 6.2), -0.183185307179586));
        QVERIFY(near(ZelDiffAngle(6.2, 0.1), 0.183185307179586));
        QVERIFY(ZelDiffAngle(2 * Quarter, 0) == -2 * Quarter); // half a turn keeps its sign
        QVERIFY(ZelDiffAngle(0, 2 * Quarter) == 2 * Quarter);
        QVERIFY(near(ZelDiffAngle(0, 20), 13.716814692820414)); // only one turn is taken off
    }

    void linesHavePointsAndLengths()
    {
        QCOMPARE(text(ZelLineGetPointAtParameter({1, 1}, {9, 5}, 0.25)), "3 2");
        QCOMPARE(text(ZelLineGetPointAtParameter({1, 1}, {9, 5}, -1)), "1 1");
        QCOMPARE(text(ZelLineGetPointAtParameter({1, 1}, {9, 5}, 1.5)), "9 5");
        // The length of a line along an axis has a sign.
        QCOMPARE(text(ZelLineGetLength({5, 0}, {2, 0}), ZelLineGetLength({0, 7}, {0, 3})), "-3, -4");
        QCOMPARE(text(ZelLineGetLength({0, 3}, {0, 7}), ZelLineGetLength({3, 4}, {0, 0})), "4, 5");
        QCOMPARE(text(ZelLineGetLength({1, 1}, {1, 1}), ZelLineGetLength({1, NaN}, {1, 1})), "0, nan");
        const QPointF p(0.1, 1e16), q(0.3, -1e16); // the middle is exact
        QCOMPARE(text(ZelLineGetPointAtParameter(p, q, 0.5), ZelLineGetMidPoint(p, q)), "0.2 0, 0.2 0");
        QVERIFY(std::isnan(ZelLineGetPointAtParameter(p, q, NaN).x()));
        // Where lines cross: the parameter on the second one, also beyond its ends.
        QCOMPARE(text(ZelIntersection({0, 0}, {10, 0}, {4, -1}, {4, 3})), "0.25");
        QCOMPARE(text(ZelIntersection({0, 0}, {10, 0}, {4, 2}, {4, 3})), "-2");
        QCOMPARE(text(ZelIntersection({1, 2}, {5, 4}, {2, 6}, {6, 0})), "0.4375");
        QVERIFY(!std::isfinite(ZelIntersection({0, 0}, {1, 1}, {0, 5}, {2, 7})));
    }

    void rectanglesHaveEdgesAndAnchors()
    {
        const QRectF clamping = CGRectFromPoints({7, -2}, {3, 5});
        QCOMPARE(text(clamping), "3 -2 4 7");
        for (const QRectF &r : {clamping, QRectF(7, 5, -4, -7)}) { // the same area
            QCOMPARE(text(CGRectClampPoint(r, {100, -100}), CGRectClampPoint(r, {-Infinity, 4})), "7 -2, 3 4");
            QCOMPARE(text(CGRectGetMidX(r), CGRectGetMidY(r), CGRectGetMaxY(r)), "5, 1.5, 5");
        }
        QVERIFY(std::isnan(CGRectClampPoint(clamping, {NaN, 0}).x()));
        const QRectF rect(10, 20, 40, 8);
        // The anchor, its place, the result of moving it by (4, -2) while the opposite corner stays, and the result of
        // a size of 20 by 16.
        const std::tuple<ZelRectAnchor, QPointF, const char *, const char *> rows[] = {
            {ZelOriginTopLeft, {10, 20}, "14 18 36 10", "10 20 20 16"},
            {ZelOriginTopRight, {50, 20}, "10 18 44 10", "30 20 20 16"},
            {ZelOriginMiddleCenter, {30, 24}, "14 18 40 8", "20 16 20 16"},
            {ZelOriginMiddleRight, {50, 24}, "10 18 44 8", "30 16 20 16"},
            {ZelOriginBottomLeft, {10, 28}, "14 20 36 6", "10 12 20 16"},
            {ZelOriginBottomRight, {50, 28}, "10 20 44 6", "30 12 20 16"},
        };
        for (const auto &[anchor, point, resized, aboutItsPoint] : rows) {
            const TableRow row(text(point));
            const QPointF target(point.x() + 4, point.y() - 2);
            QCOMPARE(text(CGRectGetOriginForAnchor(anchor, rect)), text(point));
            QCOMPARE(text(CGRectSetOriginForAnchor(rect, anchor, target, true)), resized);
            QCOMPARE(text(CGRectSetOriginForAnchor(rect, anchor, target, false)), "14 18 40 8");
            QCOMPARE(text(CGRectSetSizeForAnchor(rect, anchor, {20, 16})), aboutItsPoint);
        }
        // A negative size mixes stored and normalised edges.
        const QRectF negative(10, 20, -4, -6);
        QCOMPARE(text(CGRectGetOriginForAnchor(ZelOriginTopLeft, negative)), "10 20");
        QCOMPARE(text(CGRectGetOriginForAnchor(ZelOriginMiddleCenter, negative)), "8 17");
        QCOMPARE(text(CGRectGetOriginForAnchor(ZelOriginBottomRight, negative)), "10 20");
        QCOMPARE(text(CGRectSetOriginXForAnchor(negative, ZelOriginMiddleRight, 13, true)), "10 20 -1 -6");
        // Here the anchor of the stored size stays, not the one that is read.
        QCOMPARE(text(CGRectSetSizeHeightForAnchor(negative, ZelOriginBottomRight, 2)), "10 12 -4 2");
        // What is no anchor reads the stored origin and resizes nothing. Moving all of it needs no anchor.
        constexpr auto none = ZelRectAnchor(9);
        const QRectF plain(1, 2, 3, 4);
        QCOMPARE(text(CGRectSetOriginForAnchor(plain, none, {50, 60}, true)), "1 2 3 4");
        QCOMPARE(text(CGRectSetSizeForAnchor(plain, none, {30, 40})), "1 2 30 40");
        QCOMPARE(text(CGRectSetOriginForAnchor(plain, none, {50, 60}, false)), "50 60 3 4");
        // What is infinite or no number stays in its axis.
        QCOMPARE(text(CGRectSetSizeWidthForAnchor(plain, ZelOriginBottomLeft, Infinity)), "1 2 inf 4");
        QCOMPARE(text(CGRectSetOriginXForAnchor(plain, ZelOriginMiddleRight, NaN, true)), "1 2 nan 4");
    }

    void numbersAreRoundedAndLimited()
    {
        QCOMPARE(text(ZelSignum(0.1), ZelSignum(-Infinity), ZelSignum(-0.0), ZelSignum(NaN)), "1, -1, 0, 0");
        QCOMPARE(text(CGFloatClamp(5, 10, 0), CGFloatClamp(-5, 10, 0)), "0, 10");
        QCOMPARE(text(CGFloatClamp(Infinity, 0, 3), CGFloatClamp(2, 0, 3)), "3, 2");
        QList<double> values{0, -0.0, NaN, Infinity, -Infinity, 1e300, 9007199254740993.0, 4503599627370495.5};
        for (double base : {0.0, 1.0, -1.0, 2.0, 1e6, -4503599627370495.0}) {
            for (double v : {base, base + 0.5, base - 0.5})
                values << v << std::nextafter(v, Infinity) << std::nextafter(v, -Infinity);
        }
        const auto same = [](double a, double b) {
            return std::isnan(b) ? std::isnan(a) : a == b && std::signbit(a) == std::signbit(b);
        };
        for (double v : std::as_const(values)) {
            QVERIFY2(same(ZelFloor(v), std::floor(v)), qPrintable(text(v)));
            QVERIFY2(same(ZelCeil(v), std::ceil(v)), qPrintable(text(v)));
            QVERIFY2(same(ZelRound(v), std::round(v)), qPrintable(text(v)));
        }
        const auto most = std::numeric_limits<qint64>::max(), least = std::numeric_limits<qint64>::min();
        for (const auto &[value, floored] : std::initializer_list<std::pair<double, qint64>>{
                 {2.999995, 3}, {2.99998, 2}, {-0.5, -1}, {-0.000001, 0}, {1e19, most}, {-Infinity, least}, {NaN, 0}})
            QCOMPARE(CGFloorWithEpsilon(value), floored);
    }

    void numbersAreRestrictedToIntervals()
    {
        constexpr auto in = &CGFloatRestrictToInterval;
        QCOMPARE(text(in(0.1 + 0.2, 0, 360)), "0.30000000000000004"); // inside, bit for bit
        QCOMPARE(text(in(370, 0, 360), in(-90, 0, 360), in(360, 0, 360)),
                 "9.999999999999964, 270, 0"); // by the quotient
        QCOMPARE(text(in(-4, -4, 4), in(21, 4, 12), in(0, -12, -4)), "-4, 5, -8");
        QCOMPARE(text(in(Infinity, 0, 1), in(NaN, 0, 1), in(1, 0, 0)), "nan, nan, nan");
        QCOMPARE(text(ZelRestrictDegrees(-45), ZelRestrictDegrees(359.5), ZelRestrictDegrees(720)), "315, 359.5, 0");
        QCOMPARE(ZelRestrictRadians(-Quarter), 4.71238898038469);
        QVERIFY(ZelRestrictRadians(6.283185307179586) == 0);
        QVERIFY(ZelRestrictRadians(6.283185307179585) == 6.283185307179585);
        for (double angle = -50; angle < 50; angle += 0.37) {
            const double restricted = ZelRestrictRadians(angle);
            QVERIFY(restricted >= 0 && restricted < 6.283185307179586);
            QVERIFY(near(std::sin(restricted), std::sin(angle)) && near(std::cos(restricted), std::cos(angle)));
        }
        // Degrees are multiplied before they are divided: fractions of a turn come out as the nearest numbers.
        QVERIFY(ZelDegreesToRadians(180) == 2 * Quarter && ZelDegreesToRadians(60) == 1.0471975511965976);
        QVERIFY(ZelRadiansToDegrees(2 * Quarter) == 180 && ZelRadiansToDegrees(Quarter) == 90);
    }

    void straightSegmentsAreExact()
    {
        const auto check = [](const Curve &curve, double length, double parameter) {
            const TableRow row(curve.points());
            QVERIFY(ZelSplineIsLinear(curve.p0, curve.p1, curve.p2, curve.p3));
            QCOMPARE(text(curve.length(), curve.parameter(2.5)), text(length, parameter));
            QVERIFY(curve.parameter(0) == 0 && curve.parameter(-1) == 0);
        };
        check({{0, 0}, {3, 0}, {7, 0}, {10, 0}}, 10, 0.25);
        check({{1, 1}, {2.5, 3}, {4, 5}, {7, 9}}, 10, 0.25);
        check({{0, 0}, {50, 0}, {-50, 0}, {10, 0}}, 10, 0.25);          // handles beyond the ends
        check({{10, 0}, {7, 0}, {3, 0}, {0, 0}}, -10, 0);               // backwards
        check({{0, 0}, {0.25, 0.25}, {0.5, 0.25}, {0.75, 1}}, 1.25, 1); // small enough to be flat
        check({{4, 4}, {90, 4}, {90, 90}, {4, 4}}, 0, 0);
        check({{4, 4}, {4, 4}, {4, 4}, {4, 4}}, 0, 0);
        check({{0, 0}, {0x1p-600, 0}, {0x2p-600, 0}, {0x3p-600, 0x4p-600}}, 0x5p-600, 1); // its square is 0
        // Its second half runs from (8, 0) back to the origin with handles 0.25 off that way: it counts negative.
        const Curve curve{{22, -1.5}, {8, 0}, {6, 0.5}, {0, 0}};
        QVERIFY(!ZelSplineIsLinear(curve.p0, curve.p1, curve.p2, curve.p3));
        QCOMPARE(curve.length(), std::sqrt(14 * 14 + 1.5 * 1.5) - 8);
        QVERIFY(curve.parameter(7) == 1);
    }

    void measuresCurves()
    {
        // Chords of flat pieces fall short of the arc, and within a piece the speed varies: by about a point at any
        // size. The lengths are integrals over the speed.
        const std::pair<Curve, double> rows[] = {
            {Arc, 1.5708930676223196}, {Loop, 2.487848809742012}, {Wave, 1.6329620220565788}};
        for (const auto &[unit, integral] : rows) {
            for (double size : {10.0, 1e3, 1e5, 1e7}) {
                const TableRow row(text(integral, size));
                const Curve curve = unit.scaled(size);
                const double length = curve.length();
                const double shortage = integral * size - length;
                QVERIFY2(shortage > 0 && shortage < 0.5, qPrintable(text(shortage)));
                for (int i = 1; i < 16; ++i) {
                    const double reached = curve.piece(true, curve.parameter(length * i / 16)).length();
                    QVERIFY2(std::abs(reached - length * i / 16) < 1, qPrintable(text(i, reached)));
                }
                QVERIFY(curve.parameter(length) == 1 && curve.parameter(length * 2) == 1);
                QVERIFY(std::abs(curve.parameter(curve.piece(true, 0.5).length()) - 0.5) < 1e-9);
            }
        }
    }

    void measuresAsPlainHalvingDoes()
    {
        // Among curves on a coarse grid many pieces are parallel to an axis, where the sign of a length is at stake.
        std::minstd_rand random(7);
        const auto check = [](const Curve &curve) {
            const double expected = halvedLength(curve);
            return std::abs(curve.length() - expected) <= 1e-12 * std::abs(expected);
        };
        for (int i = 0; i < 5000; ++i) {
            const double unit = i % 2 ? 0.5 : 0.1;
            const auto point = [&] { return QPointF(int(random() % 21) - 10, int(random() % 21) - 10) * unit; };
            QVERIFY2(check({point(), point(), point(), point()}), qPrintable(text(i)));
        }
        const QPointF far(3e13, -7e13);
        QVERIFY(check(Loop.scaled(1e9)));
        QVERIFY(check({Arc.p0 * 100 + far, Arc.p1 * 100 + far, Arc.p2 * 100 + far, Arc.p3 * 100 + far}));
    }

    void piecesLieOnTheCurve()
    {
        const Curve curve{{0, 0}, {32, 64}, {64, -64}, {128, 32}};
        QCOMPARE(text(curve.at(-1), curve.at(2)), "0 0, 128 32");
        QCOMPARE(text(curve.at(0.25)), "24.5 18.5"); // (27 p0 + 27 p1 + 9 p2 + p3) / 64
        QCOMPARE(curve.piece(true, 0.25).points(), "0 0, 8 16, 16 20, 24.5 18.5");
        QCOMPARE(curve.piece(false, 0.25).points(), "24.5 18.5, 50 14, 80 -40, 128 32");
        QCOMPARE(curve.piece(true, 0).points(), "0 0, 0 0, 0 0, 0 0");
        QCOMPARE(curve.piece(false, -3).points(), curve.points());
        QCOMPARE(curve.piece(true, 1.5).points(), curve.points());
        QCOMPARE(curve.piece(false, 1).points(), "128 32, 128 32, 128 32, 128 32");
    }

    void hugeAndBrokenInputEnds()
    {
        // Each of these would be halved without end by the flatness alone.
        const double unit = Loop.scaled(1e7).length() / 1e7;
        QVERIFY(std::abs(Loop.scaled(1e150).length() / 1e150 / unit - 1) < 1e-7);
        QVERIFY(std::abs(Loop.scaled(1e150).parameter(unit / 2 * 1e150) - Loop.scaled(1e7).parameter(unit / 2 * 1e7)) <
                1e-6);
        const Curve far{{1e17, 1e17}, {1e17 + 64, 1e17}, {1e17, 1e17 + 64}, {1e17 + 64, 1e17 + 64}};
        QVERIFY(std::isfinite(far.length()));
        for (double bad : {NaN, Infinity, -Infinity, 1e308}) {
            for (int place = 0; place < 4; ++place) {
                Curve curve = Loop.scaled(100);
                QPointF *const points[] = {&curve.p0, &curve.p1, &curve.p2, &curve.p3};
                *points[place] = QPointF(bad, -bad);
                QVERIFY(!(std::abs(curve.length()) < 1e300));
                const double parameter = curve.parameter(10);
                QVERIFY(std::isnan(parameter) || (parameter >= 0 && parameter <= 1));
            }
        }
        QVERIFY(Loop.scaled(100).parameter(Infinity) == 1);
        QVERIFY(!(Loop.scaled(100).parameter(NaN) >= 0));
    }
};

QTEST_APPLESS_MAIN(tst_ZelGeometry)
#include "tst_ZelGeometry.moc"
