// SPDX-License-Identifier: MIT
#include "Geometry/ZelLine.h"
#include "Geometry/ZelRectAnchor.h"
#include "Geometry/ZelSnapUtilities.h"
#include "Geometry/ZelSpline.h"
#include "Support/Failures.h"
#include "Support/TableRow.h"
#include <QtWidgets>
#include <random>

namespace {
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Quarter = 1.5707963267948966;
constexpr auto Floor = ZelSnapModeFloor;
constexpr auto Ceil = ZelSnapModeCeil;
constexpr auto Round = ZelSnapModeRound;

// Numbers as text that tells apart any two of them: Qt's own comparisons take some for equal that are not.
QString text(double v)
{
    return QString::number(v, 'g', QLocale::FloatingPointShortest);
}
QString text(const QPointF &p)
{
    return text(p.x()) + u' ' + text(p.y());
}
QString text(const QSizeF &s)
{
    return text(s.width()) + u' ' + text(s.height());
}
QString text(const QRectF &r)
{
    return text(r.topLeft()) + u' ' + text(r.size());
}
template<typename First, typename Second, typename... Others>
QString text(const First &first, const Second &second, const Others &...others)
{
    return text(first) + u", " + text(second, others...);
}

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

/// A widget on a screen of any ratio.
class RatioWidget : public QWidget
{
public:
    using QWidget::QWidget;
    double ratio = 1;

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        return metric == PdmDevicePixelRatioScaled ? int(ratio * devicePixelRatioFScale()) : QWidget::metric(metric);
    }
};
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
        QCOMPARE(text(CGPointDistanceToPoint({1, 1}, {-2, 5}), CGPointNormalize({0, -8}), CGPointNormalize({0, 0})),
                 "5, 0 -1, 0 0");
        QCOMPARE(text(CGPointScaleToLength({3, -4}, 10), CGPointScaleToLength({3, -4}, -5)), "6 -8, -3 4");
        QCOMPARE(text(CGPointScaleToLength({0, 0}, 10)), "0 0");
    }

    void anglesAreMeasured()
    {
        const std::pair<QPointF, int> eighths[] = {{{2, 0}, 0},  {{2, 2}, 1},  {{0, 1}, 2},
                                                   {{-1, 0}, 4}, {{0, -3}, 6}, {{1, -1}, 7}};
        for (const auto &[direction, eighth] : eighths) {
            const TableRow row(text(direction));
            const double angle = eighth * Quarter / 2;
            const QPointF center(10, -20);
            QVERIFY(near(CGPointGetAngle(direction), angle));
            QVERIFY(near(CGPointDistanceToPoint(CGPointAngle(angle), CGPointNormalize(direction)), 0));
            // On a clock it is a quarter further.
            QVERIFY(near(CGAngleWithPointAndCenter(center + direction, center), (eighth + 2) % 8 * Quarter / 2));
        }
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
        const auto at = [](double t) { return ZelLineGetPointAtParameter({1, 1}, {9, 5}, t); };
        QCOMPARE(text(at(0.25), at(-1), at(1.5)), "3 2, 1 1, 9 5");
        // The length of a line along an axis has a sign.
        QCOMPARE(text(ZelLineGetLength({5, 0}, {2, 0}), ZelLineGetLength({0, 7}, {0, 3})), "-3, -4");
        QCOMPARE(text(ZelLineGetLength({0, 3}, {0, 7}), ZelLineGetLength({3, 4}, {0, 0})), "4, 5");
        QCOMPARE(text(ZelLineGetLength({1, 1}, {1, 1}), ZelLineGetLength({1, NaN}, {1, 1})), "0, nan");
        const QPointF p(0.1, 1e16), q(0.3, -1e16); // the middle is exact
        QCOMPARE(text(ZelLineGetPointAtParameter(p, q, 0.5), ZelLineGetMidPoint(p, q)), "0.2 0, 0.2 0");
        QVERIFY(std::isnan(ZelLineGetPointAtParameter(p, q, NaN).x()));
        // Where lines cross: the parameter on the second one, also beyond its ends.
        QCOMPARE(
            text(ZelIntersection({0, 0}, {10, 0}, {4, 2}, {4, 3}), ZelIntersection({1, 2}, {5, 4}, {2, 6}, {6, 0})),
            "-2, 0.4375");
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
        const auto place = [&](ZelRectAnchor anchor) { return CGRectGetOriginForAnchor(anchor, negative); };
        QCOMPARE(text(place(ZelOriginTopLeft), place(ZelOriginMiddleCenter), place(ZelOriginBottomRight)),
                 "10 20, 8 17, 10 20");
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

    void numbersAreRoundedAndRestricted()
    {
        QCOMPARE(text(ZelSignum(0.1), ZelSignum(-Infinity), ZelSignum(-0.0), ZelSignum(NaN)), "1, -1, 0, 0");
        QCOMPARE(text(CGFloatClamp(5, 10, 0), CGFloatClamp(-5, 10, 0), CGFloatClamp(Infinity, 0, 3)), "0, 10, 3");
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
        constexpr auto in = &CGFloatRestrictToInterval;
        QCOMPARE(text(in(0.1 + 0.2, 0, 360)), "0.30000000000000004"); // inside, bit for bit
        // By the quotient.
        QCOMPARE(text(in(370, 0, 360), in(-90, 0, 360), in(360, 0, 360)), "9.999999999999964, 270, 0");
        QCOMPARE(text(in(-4, -4, 4), in(21, 4, 12), in(0, -12, -4)), "-4, 5, -8");
        QCOMPARE(text(in(Infinity, 0, 1), in(NaN, 0, 1), in(1, 0, 0)), "nan, nan, nan");
        QCOMPARE(text(ZelRestrictDegrees(-45), ZelRestrictDegrees(359.5), ZelRestrictDegrees(720)), "315, 359.5, 0");
        QCOMPARE(ZelRestrictRadians(-Quarter), 4.71238898038469);
        QVERIFY(ZelRestrictRadians(6.283185307179586) == 0);
        QVERIFY(ZelRestrictRadians(6.283185307179585) == 6.283185307179585);
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

    void measuresCurvesByHalving()
    {
        // Chords of flat pieces fall short of the arc, and within a piece the speed varies: by about a point at any
        // size. The lengths are integrals over the speed.
        const std::pair<Curve, double> rows[] = {
            {Arc, 1.5708930676223196}, {Loop, 2.487848809742012}, {Wave, 1.6329620220565788}};
        for (const auto &[unit, integral] : rows) {
            for (double size : {10.0, 1e3, 1e6}) {
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
        // Among curves on a coarse grid many pieces are parallel to an axis, where the sign of a length is at stake.
        std::minstd_rand random(7);
        const auto check = [](const Curve &curve) {
            const double expected = halvedLength(curve);
            return std::abs(curve.length() - expected) <= 1e-12 * std::abs(expected);
        };
        for (int i = 0; i < 3000; ++i) {
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

    void snapsToWholeNumbersOrCentres()
    {
        constexpr auto point = &ZelSnapPoint;
        QCOMPARE(text(point({1.9, -1.1}, Floor, false), point({1.1, -1.9}, Ceil, false)), "1 -2, 2 -1");
        QCOMPARE(text(point({1.5, -0.5}, Round, false), point({3, 2.5}, Round, true)), "2 -1, 3.5 2.5");
        QCOMPARE(text(point({3, 0.4}, Floor, true), point({3, 0.6}, Ceil, true)), "2.5 -0.5, 3.5 1.5");
        constexpr auto unknown = ZelSnapMode(7);
        const auto checkRect = [](ZelSnapMode mode, bool halfPoints, const QRectF &value, const char *expected) {
            QCOMPARE(text(ZelSnapRect(value, mode, halfPoints)), expected);
        };
        Failures failures;
        const QRectF rect(0.25, -1.75, 3, 4); // to 3.25 and 2.25
        const QRectF small(0.2, 0.2, 0.5, 0.5);
        checkRect(Floor, false, rect, "1 -1 2 3");
        checkRect(Floor, false, small, "1 1 -1 -1"); // less than a pixel
        checkRect(Ceil, false, rect, "0 -2 4 5");
        checkRect(Ceil, false, small, "0 0 1 1");
        checkRect(Round, false, rect, "0 -2 3 4");
        checkRect(unknown, false, rect, "0 -2 3 4"); // rounds
        checkRect(Floor, true, rect, "0.5 -1.5 2 3");
        checkRect(Round, false, {-2.5, -0.5, 5, 3}, "-3 -1 6 4");            // halves go outwards
        checkRect(Ceil, true, {-1e300, 0.2, 0x1p60, 1}, "-1e+300 -0.5 0 2"); // beyond halves
        checkRect(Ceil, false, {3.25, 2.25, -3, -4}, "0 -2 4 5");            // a negative size
        QCOMPARE(failures.taken(), QStringList());
        QCOMPARE(text(ZelSnapSize({1.5, 2.5}, unknown, false), ZelSnapSize({1.5, 2.4}, Ceil, true)),
                 "1.5 2.5, 1.5 2.5");
        QCOMPARE(failures.taken(), QStringList(2, "Geometry/ZelSnapUtilities: Unexpected case"));
    }

    void snappedRectanglesFillWholePixels()
    {
        const QRectF rect(3.3, 4.7, 6.6, 8); // (4.4, 5, 6.6, 8) after the move
        const auto check = [&](double ratio, ZelSnapMode mode, const QRectF &pixels, const QTransform &transform) {
            const TableRow row(text(ratio, pixels));
            QImage image(60, 60, QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            QPainter painter(&image);
            painter.setTransform(transform);
            const QRectF snapped = ZelSnapRectInDeviceSpace(&painter, rect, mode, false);
            QCOMPARE((transform * QTransform::fromScale(ratio, ratio)).mapRect(snapped), pixels);
        };
        const QTransform moved = QTransform::fromTranslate(1.1, 0.3), mirrored(1.5, 0, 0, -1.5, 0, 50);
        check(1.25, Floor, {6, 7, 7, 9}, moved);
        check(1.25, Ceil, {5, 6, 9, 11}, moved);
        check(1.25, Round, {6, 6, 8, 10}, moved);
        check(1.5, Floor, {7, 8, 9, 11}, moved);
        check(1.5, Ceil, {6, 7, 11, 13}, moved);
        check(1, Ceil, {4, 30, 11, 13}, mirrored);
        check(1, Ceil, {27, 3, 9, 7}, QTransform::fromTranslate(40, 0).rotate(90));
        QImage image(10, 10, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.setTransform(mirrored);
        const QSizeF size = ZelSnapSizeInDeviceSpace(&painter, {3, 3}, Floor, false); // 4.5 by -4.5 pixels
        QCOMPARE(text(size), text(QSizeF(4 / 1.5, 5 / 1.5)));
        const QRectF small = ZelSnapRectInDeviceSpace(&painter, {0.2, 0.2, 0.2, 0.2}, Floor, false);
        QVERIFY(small.width() < 0 && small.height() < 0);
        painter.setTransform(QTransform(0, 2, -2, 0, 5, 0)); // a quarter turn
        QCOMPARE(text(ZelSnapPointInDeviceSpace(&painter, {1.3, 2.4}, Ceil, false)), "1.5 2");
        QCOMPARE(text(ZelSnapSizeInDeviceSpace(&painter, {1.3, 2.4}, Floor, false)), "1 2.5");
        painter.setTransform(QTransform::fromScale(0, 0));
        QCOMPARE(text(ZelSnapPointInDeviceSpace(&painter, {1.2, 3.4}, Floor, false)), "1.2 3.4");
    }

    void deviceNeedsPainterAndBlock()
    {
        QImage image(10, 10, QImage::Format_RGB32);
        image.setDevicePixelRatio(2);
        QPainter painter(&image), idle;
        QCOMPARE(text(ZelTransformPointInDeviceSpace(&painter, {1, 2}, [](auto &p) { return p + QPointF(1, 5); })),
                 "1.5 4.5");
        Failures failures;
        QCOMPARE(text(ZelSnapPointInDeviceSpace(nullptr, {1.2, 3.4}, Floor, false)), "1.2 3.4");
        QCOMPARE(text(ZelTransformSizeInDeviceSpace(&idle, {1, 2}, [](const QSizeF &s) { return s * 2; })), "1 2");
        QCOMPARE(text(ZelTransformRectInDeviceSpace(&painter, {1, 2, 3, 4}, {})), "1 2 3 4");
        QCOMPARE(text(ZelSnapUtilities(nullptr).transformPointInBacking({1, 2}, {})), "1 2");
        const QString device = "CG%1 ZelTransform%1InDeviceSpace(CGContextRef, CG%1, __strong Zel%1TransformBlock): ";
        QCOMPARE(failures.seen,
                 (QStringList{device.arg("Point") + "Missing context", device.arg("Size") + "Missing context",
                              device.arg("Rect") + "Missing dispatch block",
                              "Geometry/ZelSnapUtilities: Invalid parameter not satisfying: block"}));
    }

    void backingCountsRatioAndPlace()
    {
        const auto check = [](double ratio, const QPointF &inWindow, const QPointF &inChild) {
            const TableRow row(text(ratio));
            RatioWidget window, child(&window);
            window.ratio = child.ratio = ratio;
            child.setGeometry(1, 2, 50, 50);
            const ZelSnapUtilities ofWindow(&window), ofChild(&child);
            QCOMPARE(ofWindow.snapPointInBacking({10.3, 10.8}, Floor, false), inWindow);
            QCOMPARE(ofChild.snapPointInBacking({10.3, 10.8}, Floor, false), inChild);
            // A size has no place.
            const QSizeF size = ofChild.snapSizeInBacking({10.3, 10.8}, Floor, false);
            QCOMPARE(QPointF(size.width(), size.height()), inWindow);
            const QRectF rect = ofChild.snapRectInBacking({10.3, 10.8, 40, 40}, Ceil, false);
            QCOMPARE(rect.topLeft(), inChild);
            QVERIFY(rect.right() >= 50.3 && rect.right() < 50.3 + 1 / ratio);
            for (int i = -540; i < 540; ++i) { // snapping again changes nothing
                const ZelSnapMode mode = i % 2 ? Floor : Ceil;
                const QPointF once = ofWindow.snapPointInBacking({i * 0.185, 0}, mode, false);
                QCOMPARE(text(ofWindow.snapPointInBacking(once, mode, false).x()), text(once.x()));
            }
        };
        check(1.25, {9.6, 10.4}, {10.2, 10.8});
        check(1.5, {10, 32 / 3.0}, {29 / 3.0, 32 / 3.0});
    }
};
QTEST_MAIN(tst_ZelGeometry)
#include "tst_ZelGeometry.moc"
