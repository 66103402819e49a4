// SPDX-License-Identifier: MIT
#include "Geometry/ZelScalarMath.h"

#include <QTest>
#include <cmath>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

static_assert(ZelSignum(0.1) == 1 && ZelSignum(-Infinity) == -1 && ZelSignum(-0.0) == 0 && ZelSignum(NaN) == 0);
static_assert(CGFloatClamp(5, 10, 0) == 0 && CGFloatClamp(-5, 10, 0) == 10);
static_assert(CGFloatClamp(Infinity, 0, 3) == 3 && CGFloatClamp(2, 0, 3) == 2);

} // namespace

class TestScalarMath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundsAsTheLibrary();
    void restrictsToInterval_data();
    void restrictsToInterval();
    void restrictionGivesTheSameDirection();
    void floorsWithEpsilon_data();
    void floorsWithEpsilon();
    void convertsDegreesExactly();
    void turnsTheShortWay_data();
    void turnsTheShortWay();
};

void TestScalarMath::roundsAsTheLibrary()
{
    QList<double> values{0, -0.0, NaN, Infinity, -Infinity, 1e300, 9007199254740993.0, 4503599627370495.5};
    for (double base : {0.0, 1.0, -1.0, 2.0, 1e6, -4503599627370495.0}) {
        for (double half : {0.0, 0.5, -0.5}) {
            values << base + half << std::nextafter(base + half, Infinity) << std::nextafter(base + half, -Infinity);
        }
    }
    const auto same = [](double a, double b) {
        return std::isnan(b) ? std::isnan(a) : a == b && std::signbit(a) == std::signbit(b);
    };
    for (double v : std::as_const(values)) {
        QVERIFY2(same(ZelFloor(v), std::floor(v)), qPrintable(QString::number(v, 'g', 17)));
        QVERIFY2(same(ZelCeil(v), std::ceil(v)), qPrintable(QString::number(v, 'g', 17)));
        QVERIFY2(same(ZelRound(v), std::round(v)), qPrintable(QString::number(v, 'g', 17)));
    }
}

void TestScalarMath::restrictsToInterval_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<double>("expected");
    QTest::newRow("inside, bit for bit") << 0.1 + 0.2 << 0.0 << 360.0 << 0.30000000000000004;
    QTest::newRow("rounded by the quotient") << 370.0 << 0.0 << 360.0 << 9.999999999999964;
    QTest::newRow("below") << -90.0 << 0.0 << 360.0 << 270.0;
    QTest::newRow("upper bound") << 360.0 << 0.0 << 360.0 << 0.0;
    QTest::newRow("lower bound") << -4.0 << -4.0 << 4.0 << -4.0;
    QTest::newRow("interval beside zero") << 21.0 << 4.0 << 12.0 << 5.0;
    QTest::newRow("negative interval") << 0.0 << -12.0 << -4.0 << -8.0;
    QTest::newRow("infinite") << Infinity << 0.0 << 1.0 << NaN;
    QTest::newRow("not a number") << NaN << 0.0 << 1.0 << NaN;
    QTest::newRow("empty interval") << 1.0 << 0.0 << 0.0 << NaN;
}

void TestScalarMath::restrictsToInterval()
{
    QFETCH(const double, value);
    QFETCH(const double, from);
    QFETCH(const double, to);
    QFETCH(const double, expected);
    const double result = CGFloatRestrictToInterval(value, from, to);
    QVERIFY2(result == expected || (std::isnan(result) && std::isnan(expected)), qPrintable(QString::number(result)));
}

void TestScalarMath::restrictionGivesTheSameDirection()
{
    QCOMPARE(ZelRestrictRadians(-1.5707963267948966), 4.71238898038469);
    QVERIFY(ZelRestrictRadians(6.283185307179586) == 0);
    QVERIFY(ZelRestrictRadians(6.283185307179585) == 6.283185307179585);
    for (double angle = -50; angle < 50; angle += 0.37) {
        const double restricted = ZelRestrictRadians(angle);
        QVERIFY(restricted >= 0 && restricted < 6.283185307179586);
        QVERIFY(std::abs(std::sin(restricted) - std::sin(angle)) < 1e-13);
        QVERIFY(std::abs(std::cos(restricted) - std::cos(angle)) < 1e-13);
    }
    QVERIFY(ZelRestrictDegrees(-45) == 315 && ZelRestrictDegrees(359.5) == 359.5 && ZelRestrictDegrees(720) == 0);
}

void TestScalarMath::floorsWithEpsilon_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<qint64>("expected");
    QTest::newRow("a hair below") << 2.999995 << qint64(3);
    QTest::newRow("more than a hair below") << 2.99998 << qint64(2);
    QTest::newRow("negative") << -0.5 << qint64(-1);
    QTest::newRow("a hair below zero") << -0.000001 << qint64(0);
    QTest::newRow("beyond the integers") << 1e19 << std::numeric_limits<qint64>::max();
    QTest::newRow("infinite") << -Infinity << std::numeric_limits<qint64>::min();
    QTest::newRow("not a number") << NaN << qint64(0);
}

void TestScalarMath::floorsWithEpsilon()
{
    QFETCH(const double, value);
    QTEST(CGFloorWithEpsilon(value), "expected");
}

void TestScalarMath::convertsDegreesExactly()
{
    // Multiplied before it is divided: whole fractions of a turn come out as the nearest numbers.
    QVERIFY(ZelDegreesToRadians(180) == 3.141592653589793);
    QVERIFY(ZelDegreesToRadians(60) == 1.0471975511965976);
    QVERIFY(ZelRadiansToDegrees(3.141592653589793) == 180);
    QVERIFY(ZelRadiansToDegrees(1.5707963267948966) == 90);
}

void TestScalarMath::turnsTheShortWay_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<double>("expected");
    QTest::newRow("ahead") << 1.0 << 2.5 << 1.5;
    QTest::newRow("over zero, backwards") << 0.1 << 6.2 << -0.183185307179586;
    QTest::newRow("over zero, forwards") << 6.2 << 0.1 << 0.183185307179586;
    QTest::newRow("half a turn keeps its sign") << 3.141592653589793 << 0.0 << -3.141592653589793;
    QTest::newRow("only one turn is taken off") << 0.0 << 20.0 << 13.716814692820414;
}

void TestScalarMath::turnsTheShortWay()
{
    QFETCH(const double, from);
    QFETCH(const double, to);
    QFETCH(const double, expected);
    QVERIFY(std::abs(ZelDiffAngle(from, to) - expected) < 1e-14);
}

QTEST_APPLESS_MAIN(TestScalarMath)
#include "tst_ZelScalarMath.moc"
