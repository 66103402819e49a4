// SPDX-License-Identifier: MIT
#include "Layout/private/ZelConstraintSolver.h"
#include "Layout/private/ZelLayoutAxis.h"
#include "Layout/private/ZelLineMinimizer.h"
#include "Support/Random.h"
#include <QTest>
#include <array>
#include <cmath>
#include <numeric>
#include <set>

using Axis = ZelAxisConstraint;
using Solver = ZelConstraintSolver;

namespace {
const Axis::Operand start{Axis::Container, Axis::Start}, end{Axis::Container, Axis::End};

Axis relation(Axis::Operand first, Axis::Relation relation, Axis::Operand second, double constant,
              float priority = 1000)
{
    return {first, second, relation, false, priority, 1, constant};
}
Axis equal(Axis::Operand first, Axis::Operand second, double constant, float priority = 1000)
{
    return relation(first, Axis::Equal, second, constant, priority);
}
ZelLayoutBox box(double hint, float hugging = 250, float compression = 750)
{
    return {hint, 0, std::numeric_limits<double>::infinity(), hugging, compression};
}

/// Makes boxes, and constraints of the kinds that need no general solver.
struct Dice : Random
{
    using Random::Random;
    int upTo(int limit) { return int(below(quint32(limit))); }
    bool oneIn(int count) { return below(quint32(count)) == 0; }
    template<typename T> T of(std::initializer_list<T> values) { return values.begin()[upTo(int(values.size()))]; }

    ZelLayoutBoxes boxes(int count)
    {
        ZelLayoutBoxes result;
        for (int i = 0; i < count; ++i) {
            ZelLayoutBox b = box(upTo(60), of({0.01F, 1.F, 100.F, 250.F, 250.5F, 251.F, 500.F, 750.F, 999.F}),
                                 of({0.01F, 1.F, 100.F, 250.F, 250.5F, 500.F, 750.F, 751.F, 999.F}));
            if (oneIn(4))
                b.minimum = upTo(30);
            if (oneIn(4))
                b.maximum = b.minimum + upTo(40);
            b.hint = std::clamp(b.hint, b.minimum, b.maximum);
            result.push_back(b);
        }
        return result;
    }

    /// A column or row as the stack views constrain it, some of its boxes hidden.
    ZelAxisConstraints stack(int count)
    {
        const double spacing = upTo(12) - 3, endInset = upTo(10);
        const bool areEqual = oneIn(4);
        bool isHidden = oneIn(3);
        ZelAxisConstraints list{equal({0, Axis::Start}, start, upTo(10))};
        for (int i = 1; i < count; ++i) {
            list.push_back(equal({i, Axis::Start}, {i - 1, Axis::End}, spacing, 750));
            list.push_back(relation({i, Axis::Start}, Axis::NotAbove, {i - 1, Axis::Start}, isHidden ? 0 : 10000, 751));
            if (areEqual)
                list.push_back(equal({i, Axis::Length}, {i - 1, Axis::Length}, 0));
            isHidden = oneIn(3);
        }
        list.push_back(equal({count - 1, Axis::End}, end, -endInset, 250));
        list.push_back(relation({count - 1, of({Axis::Start, Axis::End})}, Axis::NotBelow, end,
                                isHidden ? -endInset : -10000, 251));
        return list;
    }
    /// Boxes tied by required gaps from one end of the container to the other.
    ZelAxisConstraints chain(int count)
    {
        ZelAxisConstraints list{equal({0, Axis::Start}, start, 2)};
        const bool areEqual = oneIn(4);
        for (int i = 1; i < count; ++i) {
            list.push_back(equal({i, Axis::Start}, {i - 1, Axis::End}, 5));
            if (areEqual)
                list.push_back(equal({i - 1, Axis::Length}, {i, Axis::Length}, 0));
        }
        list.push_back(equal({count - 1, Axis::End}, end, -2, of({1000.F, 1000.F, 750.F, 250.F})));
        if (oneIn(3))
            list.push_back(relation({upTo(count), Axis::Length}, of({Axis::NotAbove, Axis::Equal}), {}, upTo(50)));
        return list;
    }
    ZelAxisConstraints pinned(int count)
    {
        ZelAxisConstraints list;
        for (int i = 0; i < count; ++i) {
            list.push_back(equal({i, Axis::Start}, start, upTo(9)));
            list.push_back(equal(end, {i, Axis::End}, upTo(9)));
        }
        if (oneIn(3))
            list.push_back(equal({Axis::Container, Axis::Length}, {}, upTo(80), 250));
        return list;
    }
    /// Each box follows a former one, or is aligned with it.
    ZelAxisConstraints tree(int count)
    {
        ZelAxisConstraints list{equal({0, Axis::Start}, start, upTo(9)),
                                equal({0, Axis::End}, end, -upTo(9), of({1000.F, 750.F}))};
        for (int i = 1; i < count; ++i) {
            const int other = upTo(i);
            if (oneIn(2)) {
                list.push_back(equal({i, of({Axis::Start, Axis::End})}, {other, of({Axis::End, Axis::Center})}, upTo(9),
                                     of({1000.F, 750.F, 250.F})));
            } else {
                list.push_back(equal({i, Axis::Start}, {other, Axis::Start}, upTo(9)));
                list.push_back(equal({other, Axis::End}, {i, Axis::End}, upTo(9)));
            }
        }
        return list;
    }
};

bool isRow(const ZelAxisConstraints &constraints, int count)
{
    std::vector<int> boxes(size_t(count), 0), indexes(constraints.size());
    std::iota(boxes.begin(), boxes.end(), 0);
    std::iota(indexes.begin(), indexes.end(), 0);
    return ZelRowPattern::recognize(boxes, indexes, constraints).has_value();
}

struct Goal
{
    double x, y, constant;
    Solver::Relation relation;
    float priority;
    double sumAt(double px, double py) const { return x * px + y * py + constant; }
    /// How far it is missed: above and below, as far as these count.
    std::vector<double> misses(double px, double py) const
    {
        const double above = std::max(0.0, sumAt(px, py)), below = std::max(0.0, -sumAt(px, py));
        if (relation == Solver::Equal)
            return {above, below};
        return {relation == Solver::NotAbove ? above : below};
    }
};

/// Looks at every point where the lines of two goals cross: the best solutions have one of these at a corner.
struct Plane
{
    std::vector<Goal> goals;
    std::vector<int> leftOut;
    std::vector<std::pair<double, double>> points;

    void solve()
    {
        points.clear();
        leftOut.clear();
        for (const Goal &a : goals)
            for (const Goal &b : goals)
                if (const double d = a.x * b.y - b.x * a.y; std::abs(d) > 1e-9)
                    points.emplace_back((a.y * b.constant - b.y * a.constant) / d,
                                        (b.x * a.constant - a.x * b.constant) / d);
        std::set<float, std::greater<>> levels;
        for (size_t i = 0; i < goals.size(); ++i) {
            if (goals[i].priority < Solver::Required)
                levels.insert(goals[i].priority);
            else if (!keepBest([&](double x, double y) { return goals[i].misses(x, y); }, true))
                leftOut.push_back(int(i));
        }
        for (const float level : levels) {
            keepBest([&](double x, double y) {
                std::vector<double> all{0};
                for (const Goal &goal : goals)
                    if (goal.priority == level)
                        for (const double miss : goal.misses(x, y))
                            all.push_back(miss);
                all[0] = std::accumulate(all.begin(), all.end(), 0.0);
                return all;
            });
        }
    }
    /// Keeps the points whose misses are least, the first ones first. Answers whether there are any that must be 0.
    template<typename Misses> bool keepBest(Misses misses, bool mustBeMet = false)
    {
        auto rest = points;
        const size_t count = misses(0, 0).size();
        for (size_t i = 0; i < count; ++i) {
            double least = mustBeMet ? 0 : std::numeric_limits<double>::infinity();
            for (const auto &[x, y] : rest)
                least = std::min(least, misses(x, y)[i]);
            std::erase_if(rest, [&](const auto &p) { return misses(p.first, p.second)[i] > least + 1e-6; });
        }
        if (rest.empty())
            return false;
        points = rest;
        return true;
    }
};

bool areNear(double a, double b)
{
    return std::abs(a - b) < 1e-5;
}

/// Every answer is that of the general solver without memory.
void compare(ZelLayoutAxis &axis, const ZelAxisConstraints &constraints, const ZelLayoutBoxes &boxes, double length,
             int round)
{
    const QByteArray what = "in round " + QByteArray::number(round);
    ZelLayoutAxis general;
    general.setSolvesGenerally(true);
    general.setConstraints(constraints, int(boxes.size()));
    ZelLayoutSpans spans, expected;
    axis.solve(boxes, length, spans);
    general.solve(boxes, length, expected);
    for (size_t i = 0; i < boxes.size(); ++i)
        QVERIFY2(areNear(spans[i].start, expected[i].start) && areNear(spans[i].length, expected[i].length), what);
    QVERIFY2(axis.leftOut() == general.leftOut(), what);
    for (const int constraint : general.leftOut())
        QVERIFY2(axis.conflict(constraint) == general.conflict(constraint), what);
    QVERIFY2(areNear(axis.fittingLength(boxes), general.fittingLength(boxes)), what);
    const ZelAxisResistance found = axis.resistance(boxes), resistance = general.resistance(boxes);
    QVERIFY2(found.hugging == resistance.hugging && found.compression == resistance.compression, what);
}

/// Two boxes side by side; in the second kind, the third constraint cannot hold with the others.
struct Pair
{
    explicit Pair(bool isContradictory)
        : constraints{equal({0, Axis::Start}, start, 0), equal({1, Axis::Start}, {0, Axis::End}, 0),
                      equal({0, Axis::Length}, {}, 20, isContradictory ? 1000 : 300),
                      isContradictory ? equal({0, Axis::Length}, {}, 30) : equal({1, Axis::End}, end, -5)}
    {
        constraints[1].hasOffsets = true;
        axis.setConstraints(constraints, 2);
    }
    void setConstant(int constant) { axis.setConstant(2, constraints[2].constant = constant); }
    void setOffset(int offset)
    {
        axis.setOffset(1, true, constraints[1].second.offset = offset);
        QCOMPARE(axis.offset(1, true), offset);
    }
    ZelLayoutAxis axis;
    ZelAxisConstraints constraints; // that it should have by now
};
} // namespace

class tst_ZelLayoutAxis : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void allKindsAreSolvedAsByTheGeneralSolver()
    {
        for (const auto make : {&Dice::stack, &Dice::chain, &Dice::pinned, &Dice::tree}) {
            for (unsigned seed = 0; seed < 1000 && !QTest::currentTestFailed(); ++seed) {
                Dice dice(seed);
                const int count = 1 + dice.upTo(5);
                const ZelAxisConstraints constraints = (dice.*make)(count);
                QVERIFY(make != &Dice::stack || isRow(constraints, count));
                ZelLayoutAxis axis;
                axis.setConstraints(constraints, count);
                compare(axis, constraints, dice.boxes(count), dice.upTo(dice.oneIn(2) ? 300 : 100), int(seed));
            }
        }
    }

    /// Axes that are alike, become different and alike again, with few boxes and lengths, so that they meet often.
    void answersAreThoseOfAnAxisOfItsOwn()
    {
        Dice dice(7);
        std::array<Pair, 4> pairs{Pair(false), Pair(false), Pair(true), Pair(true)};
        for (int step = 0; step < 2000 && !QTest::currentTestFailed(); ++step) {
            Pair &pair = pairs[dice.below(4)];
            if (dice.oneIn(4))
                pair.setConstant(20 + dice.upTo(2));
            else if (dice.oneIn(3))
                pair.setOffset(dice.upTo(3));
            compare(pair.axis, pair.constraints, {box(10 + dice.upTo(3)), box(40)}, 60 + dice.upTo(5), step);
        }
        for (int i = 0; i < 3000 && !QTest::currentTestFailed(); ++i) { // more than are remembered, twice
            Pair pair(false);
            pair.setConstant(i % 1500);
            compare(pair.axis, pair.constraints, {box(i % 1500), box(3)}, i % 1500 * 2, i);
        }
    }

    /// Small numbers, so that goals contradict, follow from each other and are alike.
    void goalsAreMetInTheirOrder()
    {
        Random random(11);
        const auto small = [&](int most) { return double(random.below(quint32(2 * most + 1))) - most; };
        for (int round = 0; round < 3000; ++round) {
            Plane plane;
            for (quint32 i = 2 + random.below(7); i > 0; --i) {
                const float priorities[]{1000, 1000, 750, 750, 250, 1};
                plane.goals.push_back({small(2), small(1), small(12), Solver::Relation(int(random.below(3)) - 1),
                                       priorities[random.below(6)]});
            }
            std::erase_if(plane.goals, [](const Goal &goal) { return goal.x == 0 && goal.y == 0; });
            plane.goals.push_back({1, 0, 0, Solver::Equal, 0.5F}); // so that one point is the best
            plane.goals.push_back({0, 1, 0, Solver::Equal, 0.25F});
            plane.solve();
            const auto [x, y] = plane.points.front();
            Solver solver;
            for (int again = 0; again < 2; ++again) { // with the storage of the former
                solver.reset(2);
                for (const Goal &goal : plane.goals)
                    solver.addGoal({{0, goal.x}, {1, goal.y}}, goal.constant, goal.relation, goal.priority);
                solver.solve();
                const auto what = QString("round %1: %2, %3").arg(round).arg(solver.value(0)).arg(solver.value(1));
                QVERIFY2(areNear(solver.value(0), x) && areNear(solver.value(1), y), qPrintable(what));
                QVERIFY2(solver.leftOut() == plane.leftOut, qPrintable(what));
            }
        }
    }

    /// Also when higher ones are taken in meanwhile.
    void goalsOfALevelKeepTheirOrderOnALine()
    {
        ZelLineMinimizer line;
        line.addGoal(1, 0, ZelLineMinimizer::NotBelow, 1000);
        line.addGoal(1, 0, ZelLineMinimizer::NotBelow, 1000);
        line.addGoal(1, -2, ZelLineMinimizer::Equal, 250);
        line.advance(1000);
        line.addGoal(1, -8, ZelLineMinimizer::Equal, 250);
        line.advance(500);
        line.addGoal(1, -4, ZelLineMinimizer::NotAbove, 100);
        line.advance(0);
        QCOMPARE(line.value(), 2);
        ZelLineMinimizer bounded;
        QCOMPARE(bounded.value(), 0);
        bounded.addGoal(1, -4, ZelLineMinimizer::NotAbove, 100);
        bounded.advance(0);
        QCOMPARE(bounded.value(), 4);
    }
};
QTEST_APPLESS_MAIN(tst_ZelLayoutAxis)
#include "tst_ZelLayoutAxis.moc"
