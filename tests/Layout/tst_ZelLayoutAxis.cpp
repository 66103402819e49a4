// SPDX-License-Identifier: MIT
#include "Layout/private/ZelLayoutAxis.h"

#include <QTest>
#include <cmath>
#include <numeric>
#include <random>

using Axis = ZelAxisConstraint;

namespace {

Axis relation(Axis::Operand first, Axis::Relation relation, Axis::Operand second, double constant,
              float priority = 1000)
{
    Axis result;
    result.first = first;
    result.relation = relation;
    result.second = second;
    result.constant = constant;
    result.priority = priority;
    return result;
}

Axis equal(Axis::Operand first, Axis::Operand second, double constant, float priority = 1000)
{
    return relation(first, Axis::Equal, second, constant, priority);
}

const Axis::Operand start{Axis::Container, Axis::Start};
const Axis::Operand end{Axis::Container, Axis::End};

ZelLayoutBox box(double hint, float hugging = 250, float compression = 750)
{
    ZelLayoutBox result;
    result.hint = hint;
    result.hugging = hugging;
    result.compression = compression;
    return result;
}

/// A column or row as the stack views constrain it.
struct Stack
{
    double inset = 4;
    double endInset = 3;
    double spacing = 8;
    bool areEqual = false;
    bool isLastBoundOnEnd = false;
    std::vector<bool> hidden;

    ZelAxisConstraints constraints() const
    {
        ZelAxisConstraints list;
        const int count = int(hidden.size());
        for (int i = 0; i < count; ++i) {
            const Axis::Operand here{i, Axis::Start};
            if (i == 0) {
                list.push_back(equal(here, start, inset));
                continue;
            }
            list.push_back(equal(here, {i - 1, Axis::End}, spacing, 750));
            list.push_back(
                relation(here, Axis::NotAbove, {i - 1, Axis::Start}, hidden[size_t(i - 1)] ? 0 : 10000, 751));
            if (areEqual)
                list.push_back(equal({i, Axis::Length}, {i - 1, Axis::Length}, 0));
        }
        const int last = count - 1;
        list.push_back(equal({last, Axis::End}, end, -endInset, 250));
        list.push_back(relation({last, isLastBoundOnEnd ? Axis::End : Axis::Start}, Axis::NotBelow, end,
                                hidden.back() ? -endInset : -10000, 251));
        return list;
    }
};

/// Boxes tied by required gaps from one end of the container to the other.
ZelAxisConstraints chain(int count, float endPriority)
{
    ZelAxisConstraints list{equal({0, Axis::Start}, start, 2)};
    for (int i = 1; i < count; ++i)
        list.push_back(equal({i, Axis::Start}, {i - 1, Axis::End}, 5));
    list.push_back(equal({count - 1, Axis::End}, end, -2, endPriority));
    return list;
}

QString text(const ZelLayoutSpans &spans)
{
    QString result;
    for (const ZelLayoutSpan &span : spans)
        result += QStringLiteral("[%1 %2]").arg(span.start).arg(span.length);
    return result;
}

QString text(const ZelLayoutBoxes &boxes)
{
    QString result;
    for (const ZelLayoutBox &b : boxes)
        result += QStringLiteral("[%1 in %2..%3 @%4 @%5]")
                      .arg(b.hint)
                      .arg(b.minimum)
                      .arg(b.maximum)
                      .arg(b.hugging)
                      .arg(b.compression);
    return result;
}

class Random
{
public:
    explicit Random(unsigned seed)
        : m_engine(seed)
    {
    }
    int below(int count) { return int(m_engine() % unsigned(count)); }
    bool oneIn(int count) { return below(count) == 0; }
    template<typename T> T of(std::initializer_list<T> values) { return values.begin()[below(int(values.size()))]; }

    ZelLayoutBoxes boxes(int count)
    {
        ZelLayoutBoxes result;
        for (int i = 0; i < count; ++i) {
            ZelLayoutBox b = box(below(60), of({0.01F, 1.F, 100.F, 250.F, 250.5F, 251.F, 500.F, 750.F, 999.F}),
                                 of({0.01F, 1.F, 100.F, 250.F, 250.5F, 500.F, 750.F, 751.F, 999.F}));
            if (oneIn(4))
                b.minimum = below(30);
            if (oneIn(4))
                b.maximum = b.minimum + below(40);
            b.hint = std::clamp(b.hint, b.minimum, b.maximum);
            result.push_back(b);
        }
        return result;
    }

private:
    std::mt19937 m_engine;
};

bool isRow(const ZelAxisConstraints &constraints, int count)
{
    std::vector<int> boxes(size_t(count), 0);
    std::vector<int> indexes(constraints.size());
    std::iota(boxes.begin(), boxes.end(), 0);
    std::iota(indexes.begin(), indexes.end(), 0);
    return ZelRowPattern::recognize(boxes, indexes, constraints).has_value();
}

/// Solves by one pass and by the general solver and compares.
void compare(const ZelAxisConstraints &constraints, const ZelLayoutBoxes &boxes, double length)
{
    ZelLayoutAxis fast;
    fast.setConstraints(constraints, int(boxes.size()));
    ZelLayoutAxis general;
    general.setSolvesGenerally(true);
    general.setConstraints(constraints, int(boxes.size()));
    ZelLayoutSpans fastSpans;
    ZelLayoutSpans generalSpans;
    fast.solve(boxes, length, fastSpans);
    general.solve(boxes, length, generalSpans);
    bool isSame = true;
    for (size_t i = 0; i < boxes.size(); ++i) {
        isSame &= std::abs(fastSpans[i].start - generalSpans[i].start) < 1e-5 &&
                  std::abs(fastSpans[i].length - generalSpans[i].length) < 1e-5;
    }
    const QString problem = QStringLiteral("in %1: %2 but %3 of %4")
                                .arg(QString::number(length), text(fastSpans), text(generalSpans), text(boxes));
    QVERIFY2(isSame, qPrintable(problem));
    const double fastLength = fast.fittingLength(boxes);
    const double generalLength = general.fittingLength(boxes);
    QVERIFY2(std::abs(fastLength - generalLength) < 1e-5,
             qPrintable(QStringLiteral("fits %1 but %2 of %3").arg(fastLength).arg(generalLength).arg(text(boxes))));
}

} // namespace

class tst_ZelLayoutAxis : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void stackIsSolvedAsByGeneralSolver();
    void chainIsSolvedAsByGeneralSolver();
    void pinnedBoxesFitAsByGeneralSolver();
    void alignedAndFollowingBoxesAreSolvedAsByGeneralSolver();
};

void tst_ZelLayoutAxis::stackIsSolvedAsByGeneralSolver()
{
    for (unsigned seed = 0; seed < 2000; ++seed) {
        Random random(seed);
        Stack stack;
        stack.inset = random.below(10);
        stack.endInset = random.below(10);
        stack.spacing = random.below(12) - 3;
        stack.areEqual = random.oneIn(4);
        stack.isLastBoundOnEnd = random.oneIn(2);
        const int count = 1 + random.below(5);
        for (int i = 0; i < count; ++i)
            stack.hidden.push_back(random.oneIn(3));
        QVERIFY(isRow(stack.constraints(), count));
        compare(stack.constraints(), random.boxes(count), random.below(300));
        if (QTest::currentTestFailed()) {
            qWarning() << "seed" << seed << "equal" << stack.areEqual << "on end" << stack.isLastBoundOnEnd << "hidden"
                       << QList<bool>(stack.hidden.begin(), stack.hidden.end()) << stack.inset << stack.endInset
                       << stack.spacing;
            return;
        }
    }
}

void tst_ZelLayoutAxis::chainIsSolvedAsByGeneralSolver()
{
    for (unsigned seed = 0; seed < 2000; ++seed) {
        Random random(seed);
        const int count = 1 + random.below(5);
        ZelAxisConstraints constraints = chain(count, random.of({1000.F, 1000.F, 750.F, 250.F}));
        if (random.oneIn(3))
            constraints.push_back(relation({random.below(count), Axis::Length},
                                           random.of({Axis::NotAbove, Axis::Equal}), {}, random.below(50)));
        if (random.oneIn(4)) {
            for (int i = 1; i < count; ++i)
                constraints.push_back(equal({i - 1, Axis::Length}, {i, Axis::Length}, 0));
        }
        compare(constraints, random.boxes(count), random.below(300));
        if (QTest::currentTestFailed()) {
            qWarning() << "seed" << seed;
            return;
        }
    }
}

void tst_ZelLayoutAxis::pinnedBoxesFitAsByGeneralSolver()
{
    for (unsigned seed = 0; seed < 1000; ++seed) {
        Random random(seed);
        ZelAxisConstraints constraints;
        const int count = 1 + random.below(5);
        for (int i = 0; i < count; ++i) {
            constraints.push_back(equal({i, Axis::Start}, start, random.below(9)));
            constraints.push_back(equal(end, {i, Axis::End}, random.below(9)));
        }
        if (random.oneIn(3))
            constraints.push_back(equal({Axis::Container, Axis::Length}, {}, random.below(80), 250));
        compare(constraints, random.boxes(count), random.below(100));
        if (QTest::currentTestFailed()) {
            qWarning() << "seed" << seed;
            return;
        }
    }
}

void tst_ZelLayoutAxis::alignedAndFollowingBoxesAreSolvedAsByGeneralSolver()
{
    for (unsigned seed = 0; seed < 1000; ++seed) {
        Random random(seed);
        ZelAxisConstraints constraints{equal({0, Axis::Start}, start, random.below(9)),
                                       equal({0, Axis::End}, end, -random.below(9), random.of({1000.F, 750.F}))};
        const int count = 2 + random.below(4);
        for (int i = 1; i < count; ++i) {
            const int other = random.below(i);
            if (random.oneIn(2)) {
                const auto edge = random.of({Axis::Start, Axis::End});
                constraints.push_back(equal({i, edge}, {other, random.of({Axis::End, Axis::Center})}, random.below(9),
                                            random.of({1000.F, 750.F, 250.F})));
            } else {
                constraints.push_back(equal({i, Axis::Start}, {other, Axis::Start}, random.below(9)));
                constraints.push_back(equal({other, Axis::End}, {i, Axis::End}, random.below(9)));
            }
        }
        compare(constraints, random.boxes(count), random.below(100));
        if (QTest::currentTestFailed()) {
            qWarning() << "seed" << seed;
            return;
        }
    }
}

QTEST_APPLESS_MAIN(tst_ZelLayoutAxis)
#include "tst_ZelLayoutAxis.moc"
