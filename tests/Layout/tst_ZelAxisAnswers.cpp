// SPDX-License-Identifier: MIT
#include "Layout/private/ZelLayoutAxis.h"

#include <QTest>
#include <array>
#include <cmath>
#include <random>

using Axis = ZelAxisConstraint;

namespace {

/// An axis, and the constraints that it should have by now.
struct Twin
{
    ZelLayoutAxis axis;
    ZelAxisConstraints constraints;

    explicit Twin(const ZelAxisConstraints &list)
        : constraints(list)
    {
        axis.setConstraints(list, 2);
    }
};

/// Two boxes side by side; in the second kind, the third constraint cannot hold with the others.
ZelAxisConstraints kind(bool isContradictory)
{
    ZelAxisConstraints list(4);
    list[0].first = {0, Axis::Start};
    list[0].second = {Axis::Container, Axis::Start};
    list[1].first = {1, Axis::Start};
    list[1].second = {0, Axis::End};
    list[1].hasOffsets = true;
    list[2].first = {0, Axis::Length};
    list[2].constant = 20;
    list[2].priority = isContradictory ? 1000 : 300;
    list[3].first = isContradictory ? Axis::Operand{0, Axis::Length} : Axis::Operand{1, Axis::End};
    list[3].second = isContradictory ? Axis::Operand() : Axis::Operand{Axis::Container, Axis::End};
    list[3].constant = isContradictory ? 30 : -5;
    return list;
}

ZelLayoutBox box(double hint)
{
    ZelLayoutBox result;
    result.hint = hint;
    result.hugging = 250;
    result.compression = 750;
    return result;
}

bool isNear(double a, double b)
{
    return std::abs(a - b) < 1e-9;
}

bool areEqual(const ZelLayoutSpans &a, const ZelLayoutSpans &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](auto &x, auto &y) { return isNear(x.start, y.start) && isNear(x.length, y.length); });
}

/// Every answer is what an axis without memory would say.
void compare(Twin &twin, const ZelLayoutBoxes &boxes, double length)
{
    ZelLayoutAxis own;
    own.setSolvesGenerally(true);
    own.setConstraints(twin.constraints, 2);
    ZelLayoutSpans spans;
    ZelLayoutSpans ownSpans;
    twin.axis.solve(boxes, length, spans);
    own.solve(boxes, length, ownSpans);
    QVERIFY(areEqual(spans, ownSpans));
    QCOMPARE(twin.axis.leftOut(), own.leftOut());
    for (const int constraint : own.leftOut())
        QCOMPARE(twin.axis.conflict(constraint), own.conflict(constraint));
    QVERIFY(isNear(twin.axis.fittingLength(boxes), own.fittingLength(boxes)));
    const ZelAxisResistance resistance = twin.axis.resistance(boxes);
    const ZelAxisResistance ownResistance = own.resistance(boxes);
    QCOMPARE(resistance.hugging, ownResistance.hugging);
    QCOMPARE(resistance.compression, ownResistance.compression);
}

} // namespace

class tst_ZelAxisAnswers : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// Axes that are alike, become different and alike again, with few boxes and lengths, so that they meet often.
    void answersAreThoseOfAnAxisOfItsOwn()
    {
        std::mt19937 random(7);
        const auto below = [&](unsigned count) { return int(random() % count); };
        std::array twins{Twin(kind(false)), Twin(kind(false)), Twin(kind(true)), Twin(kind(true))};
        for (int step = 0; step < 2000; ++step) {
            Twin &twin = twins[size_t(below(twins.size()))];
            switch (below(4)) {
            case 0:
                twin.constraints[2].constant = 20 + below(2);
                twin.axis.setConstant(2, twin.constraints[2].constant);
                break;
            case 1:
                twin.constraints[1].second.offset = below(3);
                twin.axis.setOffset(1, true, twin.constraints[1].second.offset);
                QCOMPARE(twin.axis.offset(1, true), twin.constraints[1].second.offset);
                break;
            default:
                break;
            }
            compare(twin, {box(10 + below(3)), box(40)}, 60 + below(5));
            if (QTest::currentTestFailed()) {
                qWarning() << "step" << step;
                return;
            }
        }
    }

    /// More kinds of axes than are remembered.
    void whatWasForgottenIsFoundAgain()
    {
        for (int round = 0; round < 2; ++round) {
            for (int i = 0; i < 1500; ++i) {
                Twin twin(kind(false));
                twin.constraints[2].constant = i;
                twin.axis.setConstant(2, i);
                compare(twin, {box(i), box(3)}, 2 * i);
            }
        }
    }
};

QTEST_APPLESS_MAIN(tst_ZelAxisAnswers)
#include "tst_ZelAxisAnswers.moc"
