// SPDX-License-Identifier: MIT
#include "Layout/private/ZelConstraintSolver.h"
#include "Layout/private/ZelLineMinimizer.h"
#include "Support/Random.h"

#include <QTest>
#include <algorithm>
#include <cmath>
#include <set>

using Solver = ZelConstraintSolver;

namespace {

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

bool isNear(double a, double b)
{
    return std::abs(a - b) < 1e-5;
}

} // namespace

class tst_ZelConstraintSolver : public QObject
{
    Q_OBJECT
private Q_SLOTS:
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
                QVERIFY2(isNear(solver.value(0), x) && isNear(solver.value(1), y), qPrintable(what));
                QVERIFY2(solver.leftOut() == plane.leftOut, qPrintable(what));
            }
        }
    }

    void manyVariablesAndGoals()
    {
        Solver solver;
        solver.reset(101);
        for (int i = 0; i < 50; ++i)
            solver.addGoal({{0, 1}}, -1000, Solver::NotBelow, 750); // outweighed by one of a higher priority
        solver.addGoal({{0, 1}}, -3, Solver::NotAbove, 751);
        for (int i = 1; i < 100; ++i) { // each is one more than the former, or somewhat less
            solver.addGoal({{i, 1}, {i - 1, -1}}, -1, Solver::NotAbove, Solver::Required);
            solver.addGoal({{i, 1}, {i - 1, -1}}, -1, Solver::NotBelow, i % 10 ? 500 : 10);
            solver.addGoal({{i, 1}}, -0.5 * i, Solver::NotAbove, i % 10 ? 5 : 100);
        }
        solver.solve();
        double expected = 3;
        for (int i = 0; i < 100; ++i) {
            expected = i == 0 ? 3 : i % 10 ? expected + 1 : std::min(expected + 1, 0.5 * i);
            QCOMPARE(solver.value(i), expected);
        }
        QCOMPARE(solver.value(100), 0.0); // nothing determines it
        QVERIFY(solver.leftOut().empty());
    }

    void oneVariableIsSolvedAsOnALine()
    {
        Random random(7);
        for (int round = 0; round < 3000; ++round) {
            Solver solver;
            solver.reset(1);
            ZelLineMinimizer line;
            for (quint32 i = 2 + random.below(6); i > 0; --i) {
                const double factor = (random.below(2) ? 1 : -1) * (1 + int(random.below(3)));
                const double constant = int(random.below(41)) - 20;
                const int relation = int(random.below(3)) - 1;
                const float priority = float(1 + random.below(3));
                solver.addGoal({{0, factor}}, constant, Solver::Relation(relation), priority);
                line.addGoal(factor, constant, ZelLineMinimizer::Relation(relation), priority);
            }
            solver.solve();
            line.advance(0);
            QCOMPARE(std::clamp(solver.value(0), line.lower() - 1e-6, line.upper() + 1e-6), solver.value(0));
            QCOMPARE(std::clamp(line.value(), line.lower(), line.upper()), line.value());
        }
        ZelLineMinimizer line; // takes in higher goals between those of a level
        line.addGoal(1, 0, ZelLineMinimizer::NotBelow, 1000);
        line.addGoal(1, 0, ZelLineMinimizer::NotBelow, 1000);
        line.addGoal(1, -2, ZelLineMinimizer::Equal, 250);
        line.advance(1000);
        line.addGoal(1, -8, ZelLineMinimizer::Equal, 250);
        line.advance(500);
        line.addGoal(1, -4, ZelLineMinimizer::NotAbove, 100);
        line.advance(0);
        QCOMPARE(line.value(), 2);
    }
};

QTEST_APPLESS_MAIN(tst_ZelConstraintSolver)
#include "tst_ZelConstraintSolver.moc"
