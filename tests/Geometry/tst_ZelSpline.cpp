// SPDX-License-Identifier: MIT
#include "Geometry/ZelSpline.h"

#include "Geometry/ZelLine.h"

#include <QTest>
#include <cmath>
#include <random>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

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
    bool isSame(const Curve &o) const { return p0 == o.p0 && p1 == o.p1 && p2 == o.p2 && p3 == o.p3; }
};

/// The arc from 0 to the parameter: Simpson's rule over the speed.
double integratedLength(const Curve &c, double parameter)
{
    const auto speed = [&](double t) {
        const QPointF v =
            (c.p1 - c.p0) * ((1 - t) * (1 - t)) + (c.p2 - c.p1) * (2 * t * (1 - t)) + (c.p3 - c.p2) * t * t;
        return 3 * std::hypot(v.x(), v.y());
    };
    constexpr int steps = 2000;
    double sum = speed(0) + speed(parameter);
    for (int i = 1; i < steps; ++i)
        sum += (i % 2 ? 4 : 2) * speed(parameter * i / steps);
    return sum * parameter / (3 * steps);
}

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
Q_DECLARE_METATYPE(Curve)

class TestSpline : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void straightSegmentsAreExact_data();
    void straightSegmentsAreExact();
    void flatPieceAgainstAnAxisCountsNegative();
    void measuresAsTheIntegralDoes_data();
    void measuresAsTheIntegralDoes();
    void measuresAsPlainHalvingDoes();
    void piecesLieOnTheCurve();
    void hugeAndBrokenInputEnds();
};

void TestSpline::straightSegmentsAreExact_data()
{
    QTest::addColumn<Curve>("curve");
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("quarter"); // the parameter for a length of 2.5
    QTest::newRow("straight") << Curve{{0, 0}, {3, 0}, {7, 0}, {10, 0}} << 10.0 << 0.25;
    QTest::newRow("slanting") << Curve{{1, 1}, {2.5, 3}, {4, 5}, {7, 9}} << 10.0 << 0.25;
    QTest::newRow("handles beyond the ends") << Curve{{0, 0}, {50, 0}, {-50, 0}, {10, 0}} << 10.0 << 0.25;
    QTest::newRow("backwards") << Curve{{10, 0}, {7, 0}, {3, 0}, {0, 0}} << -10.0 << 0.0;
    QTest::newRow("small enough to be flat") << Curve{{0, 0}, {0.25, 0.25}, {0.5, 0.25}, {0.75, 1}} << 1.25 << 1.0;
    QTest::newRow("closed") << Curve{{4, 4}, {90, 4}, {90, 90}, {4, 4}} << 0.0 << 0.0;
    QTest::newRow("a point") << Curve{{4, 4}, {4, 4}, {4, 4}, {4, 4}} << 0.0 << 0.0;
}

void TestSpline::straightSegmentsAreExact()
{
    QFETCH(const Curve, curve);
    QFETCH(const double, length);
    QFETCH(const double, quarter);
    QVERIFY(ZelSplineIsLinear(curve.p0, curve.p1, curve.p2, curve.p3));
    QVERIFY(curve.length() == length);
    QVERIFY(curve.parameter(2.5) == quarter);
    QVERIFY(curve.parameter(0) == 0 && curve.parameter(-1) == 0);
}

void TestSpline::flatPieceAgainstAnAxisCountsNegative()
{
    // Its second half runs from (8, 0) back to the origin with handles 0.25 off that way, its first one is flat, too.
    const Curve curve{{22, -1.5}, {8, 0}, {6, 0.5}, {0, 0}};
    QVERIFY(!ZelSplineIsLinear(curve.p0, curve.p1, curve.p2, curve.p3));
    QCOMPARE(curve.length(), std::sqrt(14 * 14 + 1.5 * 1.5) - 8);
    QVERIFY(curve.parameter(7) == 1);
}

void TestSpline::measuresAsTheIntegralDoes_data()
{
    QTest::addColumn<Curve>("curve");
    for (double size : {10.0, 1e3, 1e5, 1e7}) {
        QTest::addRow("arc of %g", size) << Arc.scaled(size);
        QTest::addRow("loop of %g", size) << Loop.scaled(size);
        QTest::addRow("wave of %g", size) << Wave.scaled(size);
    }
}

void TestSpline::measuresAsTheIntegralDoes()
{
    // Chords of flat pieces fall short of the arc, and within a piece the speed varies: by about a point at any size.
    constexpr double lengthTolerance = 0.5;
    constexpr double parameterTolerance = 1;
    QFETCH(const Curve, curve);
    const double length = curve.length();
    const double shortage = integratedLength(curve, 1) - length;
    QVERIFY2(shortage > 0 && shortage < lengthTolerance, qPrintable(QString::number(shortage)));

    for (int i = 1; i < 16; ++i) {
        const double parameter = curve.parameter(length * i / 16);
        const double reached = integratedLength(curve, parameter);
        QVERIFY2(std::abs(reached - length * i / 16) < parameterTolerance, qPrintable(QString::number(parameter)));
    }
    QVERIFY(curve.parameter(length) == 1 && curve.parameter(length * 2) == 1);
    const Curve firstHalf = curve.piece(true, 0.5);
    QVERIFY(std::abs(curve.parameter(firstHalf.length()) - 0.5) < 1e-9);
}

void TestSpline::measuresAsPlainHalvingDoes()
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
        const Curve curve{point(), point(), point(), point()};
        QVERIFY2(check(curve), qPrintable(QString::number(i)));
    }
    const QPointF far(3e13, -7e13);
    QVERIFY(check(Loop.scaled(1e9)));
    QVERIFY(check({Arc.p0 * 100 + far, Arc.p1 * 100 + far, Arc.p2 * 100 + far, Arc.p3 * 100 + far}));
}

void TestSpline::piecesLieOnTheCurve()
{
    const Curve curve{{0, 0}, {32, 64}, {64, -64}, {128, 32}};
    QVERIFY(curve.at(-1) == curve.p0 && curve.at(2) == curve.p3);
    QVERIFY(curve.at(0.25) == QPointF(24.5, 18.5)); // (27 p0 + 27 p1 + 9 p2 + p3) / 64
    QVERIFY(curve.piece(true, 0.5).isSame({{0, 0}, {16, 32}, {32, 16}, {52, 4}}));
    QVERIFY(curve.piece(false, 0.5).isSame({{52, 4}, {72, -8}, {96, -16}, {128, 32}}));
    for (double t : {0.1, 0.5, 0.8}) {
        const Curve first = curve.piece(true, t);
        const Curve second = curve.piece(false, t);
        for (double u : {0.0, 0.3, 0.7, 1.0}) {
            QVERIFY((first.at(u) - curve.at(t * u)).manhattanLength() < 1e-12);
            QVERIFY((second.at(u) - curve.at(t + (1 - t) * u)).manhattanLength() < 1e-12);
        }
    }
    QVERIFY(curve.piece(true, 0).isSame({curve.p0, curve.p0, curve.p0, curve.p0}));
    QVERIFY(curve.piece(false, -3).isSame(curve));
    QVERIFY(curve.piece(true, 1.5).isSame(curve));
    QVERIFY(curve.piece(false, 1).isSame({curve.p3, curve.p3, curve.p3, curve.p3}));
}

void TestSpline::hugeAndBrokenInputEnds()
{
    // Each of these would be halved without end by the flatness alone.
    const double unit = Loop.scaled(1e7).length() / 1e7;
    QVERIFY(std::abs(Loop.scaled(1e150).length() / 1e150 / unit - 1) < 1e-7);
    const double middle = Loop.scaled(1e150).parameter(unit / 2 * 1e150);
    QVERIFY(std::abs(middle - Loop.scaled(1e7).parameter(unit / 2 * 1e7)) < 1e-6);
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

QTEST_APPLESS_MAIN(TestSpline)
#include "tst_ZelSpline.moc"
