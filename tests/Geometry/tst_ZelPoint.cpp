// SPDX-License-Identifier: MIT
#include "Geometry/ZelLine.h"
#include "Geometry/ZelRect.h"

#include <QTest>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

/// QPointF's own comparison takes points for equal that are not.
constexpr bool same(const QPointF &p, double x, double y)
{
    return p.x() == x && p.y() == y;
}

bool near(double a, double b)
{
    return std::abs(a - b) < 1e-14;
}

static_assert(same(CGPointAdd({1, 2}, {10, 20}), 11, 22) && same(CGPointSub({1, 2}, {10, 30}), -9, -28));
static_assert(same(CGPointOrthogonal({3, 5}), 5, -3) && same(CGPointMid({-1, 2}, {4, 6}), 1.5, 4));
static_assert(same(CGPointScaleAdd({1, 2}, {3, 5}, 10), 31, 52));
static_assert(same(CGPointScaleAdd2({1, 2}, {3, 5}, 10, {7, 11}, 100), 731, 1152));
static_assert(same(CGPointScaleAdd3({1, 2}, {3, 5}, 10, {7, 11}, 100, {13, 17}, 1000), 13731, 18152));
static_assert(CGPointDot({2, 3}, {5, -7}) == -11 && CGPointLengthSquared({-2, 3}) == 13);
static_assert(CGPointIsZero({0, -0.0}) && !CGPointIsZero({1e-300, 0}) && !CGPointIsZero({NaN, 0}));
static_assert(same(ZelLineGetPointAtParameter({1, 1}, {9, 5}, 0.25), 3, 2));
static_assert(same(ZelLineGetPointAtParameter({1, 1}, {9, 5}, -1), 1, 1));
static_assert(same(ZelLineGetPointAtParameter({1, 1}, {9, 5}, 1.5), 9, 5));

} // namespace

class TestPoint : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lengthsNeitherOverflowNorLoseTheZeroVector();
    void invertedZeroIsNegative();
    void measuresAngles_data();
    void measuresAngles();
    void turnsToADirection();
    void lineAlongAnAxisHasASignedLength();
    void midpointOfALineIsExact();
    void linesCross();
    void rectangleFromPointsAndItsNearestPoint();
};

void TestPoint::lengthsNeitherOverflowNorLoseTheZeroVector()
{
    QVERIFY(CGPointLength({0x3p700, 0x4p700}) == 0x5p700);
    QVERIFY(CGPointLength({-Infinity, NaN}) == Infinity);
    QVERIFY(CGPointDistanceToPoint({1, 1}, {-2, 5}) == 5);
    QVERIFY(same(CGPointNormalize({0, -8}), 0, -1));
    QVERIFY(same(CGPointNormalize({0, 0}), 0, 0));
    QVERIFY(same(CGPointScaleToLength({3, -4}, 10), 6, -8));
    QVERIFY(same(CGPointScaleToLength({3, -4}, -5), -3, 4));
    QVERIFY(same(CGPointScaleToLength({0, 0}, 10), 0, 0));
}

void TestPoint::invertedZeroIsNegative()
{
    const QPointF inverted = CGPointInvert({0, 2});
    QVERIFY(inverted.x() == 0 && std::signbit(inverted.x()));
    QVERIFY(inverted.y() == -2);
}

void TestPoint::measuresAngles_data()
{
    QTest::addColumn<QPointF>("direction");
    QTest::addColumn<double>("angle");
    QTest::addColumn<double>("clockAngle");
    const double eighth = 0.7853981633974483;
    QTest::newRow("right") << QPointF(2, 0) << 0.0 << 2 * eighth;
    QTest::newRow("right and down") << QPointF(2, 2) << eighth << 3 * eighth;
    QTest::newRow("down") << QPointF(0, 1) << 2 * eighth << 4 * eighth;
    QTest::newRow("left") << QPointF(-1, 0) << 4 * eighth << 6 * eighth;
    QTest::newRow("up") << QPointF(0, -3) << 6 * eighth << 0.0;
    QTest::newRow("right and up") << QPointF(1, -1) << 7 * eighth << eighth;
}

void TestPoint::measuresAngles()
{
    QFETCH(const QPointF, direction);
    QFETCH(const double, angle);
    const QPointF center(10, -20);
    QVERIFY(near(CGPointGetAngle(direction), angle));
    QFETCH(const double, clockAngle);
    QVERIFY(near(CGAngleWithPointAndCenter(center + direction, center), clockAngle));
    const QPointF unit = CGPointAngle(angle);
    QVERIFY(near(CGPointLength(unit), 1));
    QVERIFY(CGPointDistanceToPoint(unit, CGPointNormalize(direction)) < 1e-14);
}

void TestPoint::turnsToADirection()
{
    const double quarter = 1.5707963267948966;
    QVERIFY(near(CGPointDiffAngle(0, {5, 5}, {5, 9}), quarter));
    QVERIFY(near(CGPointDiffAngle(0, {5, 5}, {5, 1}), -quarter));
    // An angle of more than a turn, and a turn over zero.
    QVERIFY(std::abs(CGPointDiffAngle(9 * quarter, {0, 0}, {1, -1}) + 1.5 * quarter) < 1e-13);
}

void TestPoint::lineAlongAnAxisHasASignedLength()
{
    QVERIFY(ZelLineGetLength({5, 0}, {2, 0}) == -3);
    QVERIFY(ZelLineGetLength({0, 7}, {0, 3}) == -4);
    QVERIFY(ZelLineGetLength({0, 3}, {0, 7}) == 4);
    QVERIFY(ZelLineGetLength({3, 4}, {0, 0}) == 5);
    QVERIFY(ZelLineGetLength({1, 1}, {1, 1}) == 0);
    QVERIFY(std::isnan(ZelLineGetLength({1, NaN}, {1, 1})));
}

void TestPoint::midpointOfALineIsExact()
{
    const QPointF p(0.1, 1e16);
    const QPointF q(0.3, -1e16);
    QVERIFY(same(ZelLineGetPointAtParameter(p, q, 0.5), 0.2, 0));
    QVERIFY(same(ZelLineGetMidPoint(p, q), 0.2, 0));
    QVERIFY(std::isnan(ZelLineGetPointAtParameter(p, q, NaN).x()));
}

void TestPoint::linesCross()
{
    // The parameter is that on the second line, also beyond its ends.
    QVERIFY(ZelIntersection({0, 0}, {10, 0}, {4, -1}, {4, 3}) == 0.25);
    QVERIFY(ZelIntersection({0, 0}, {10, 0}, {4, 2}, {4, 3}) == -2);
    QVERIFY(!std::isfinite(ZelIntersection({0, 0}, {1, 1}, {0, 5}, {2, 7})));
}

void TestPoint::rectangleFromPointsAndItsNearestPoint()
{
    const QRectF rect = CGRectFromPoints({7, -2}, {3, 5});
    QVERIFY(rect.x() == 3 && rect.y() == -2 && rect.width() == 4 && rect.height() == 7);
    const QRectF negative(7, 5, -4, -7); // the same area
    for (const QRectF &r : {rect, negative}) {
        QVERIFY(same(CGRectClampPoint(r, {100, -100}), 7, -2));
        QVERIFY(same(CGRectClampPoint(r, {-Infinity, 4}), 3, 4));
        QVERIFY(CGRectGetMidX(r) == 5 && CGRectGetMidY(r) == 1.5);
    }
    QVERIFY(std::isnan(CGRectClampPoint(rect, {NaN, 0}).x()));
}

QTEST_APPLESS_MAIN(TestPoint)
#include "tst_ZelPoint.moc"
