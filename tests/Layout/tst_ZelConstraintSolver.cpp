// SPDX-License-Identifier: MIT
#include "Layout/private/ZelConstraintSolver.h"
#include "Layout/private/ZelLineMinimizer.h"

#include <QTest>
#include <cmath>
#include <random>

using Solver = ZelConstraintSolver;

class tst_ZelConstraintSolver : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void oneHighPriorityOutweighsManyLow();
    void goalsAddedFirstWinAmongEquals();
    void contradictingGoalIsLeftOutAndHarmsNothing();
    void impliedGoalIsNoContradiction();
    void multiplesAreLimitedTogether();
    void undeterminedVariablesAreZero();
    void oneVariableIsSolvedAsOnALine();
};

void tst_ZelConstraintSolver::oneHighPriorityOutweighsManyLow()
{
    Solver solver;
    solver.reset(1);
    for (int i = 0; i < 50; ++i)
        solver.addGoal({{0, 1}}, -1000, Solver::NotBelow, 750);
    solver.addGoal({{0, 1}}, -3, Solver::NotAbove, 751);
    solver.solve();
    QCOMPARE(solver.value(0), 3.0);
}

void tst_ZelConstraintSolver::goalsAddedFirstWinAmongEquals()
{
    Solver solver;
    solver.reset(2);
    solver.addGoal({{0, 1}, {1, 1}}, -30, Solver::Equal, Solver::Required);
    solver.addGoal({{1, 1}}, -10, Solver::NotAbove, 250);
    solver.addGoal({{0, 1}}, -10, Solver::NotAbove, 250);
    solver.solve();
    QCOMPARE(solver.value(1), 10.0);
    QCOMPARE(solver.value(0), 20.0);
}

void tst_ZelConstraintSolver::contradictingGoalIsLeftOutAndHarmsNothing()
{
    Solver solver;
    solver.reset(2);
    solver.addGoal({{0, 1}}, -5, Solver::NotBelow, Solver::Required);
    solver.addGoal({{0, 1}, {1, -1}}, 0, Solver::NotAbove, Solver::Required);
    solver.addGoal({{1, 1}}, -4, Solver::NotAbove, Solver::Required); // below x, which is 5 or more
    solver.addGoal({{1, 2}}, -18, Solver::NotAbove, Solver::Required);
    solver.addGoal({{0, 1}}, -100, Solver::Equal, 1);
    solver.solve();
    QCOMPARE(solver.leftOut(), std::vector<int>{2});
    QCOMPARE(solver.value(0), 9.0);
    QCOMPARE(solver.value(1), 9.0);
}

void tst_ZelConstraintSolver::impliedGoalIsNoContradiction()
{
    Solver solver;
    solver.reset(2);
    solver.addGoal({{0, 1}, {1, -1}}, 1, Solver::Equal, Solver::Required);
    solver.addGoal({{1, 3}, {0, -3}}, -3, Solver::Equal, Solver::Required);
    solver.addGoal({{1, 1}}, -8, Solver::Equal, 20);
    solver.solve();
    QVERIFY(solver.leftOut().empty());
    QCOMPARE(solver.value(0), 7.0);
}

void tst_ZelConstraintSolver::multiplesAreLimitedTogether()
{
    // Two lengths between limits, one three times the other, as long as possible.
    Solver solver;
    solver.reset(2);
    solver.addGoal({{0, 1}}, -2, Solver::NotBelow, Solver::Required);
    solver.addGoal({{0, 1}}, -40, Solver::NotAbove, Solver::Required);
    solver.addGoal({{1, 1}}, -75, Solver::NotAbove, Solver::Required);
    solver.addGoal({{1, 1}, {0, -3}}, 0, Solver::Equal, 900);
    solver.addGoal({{0, 1}}, -1000, Solver::NotBelow, 100);
    solver.solve();
    QCOMPARE(solver.value(0), 25.0);
    QCOMPARE(solver.value(1), 75.0);
}

void tst_ZelConstraintSolver::undeterminedVariablesAreZero()
{
    Solver solver;
    solver.reset(3);
    solver.addGoal({{0, 1}, {1, -1}}, -4, Solver::Equal, Solver::Required);
    solver.solve();
    QCOMPARE(solver.value(0) - solver.value(1), 4.0);
    QCOMPARE(solver.value(2), 0.0);
}

void tst_ZelConstraintSolver::oneVariableIsSolvedAsOnALine()
{
    std::mt19937 random(7);
    const auto below = [&](int count) { return int(random() % unsigned(count)); };
    for (int round = 0; round < 3000; ++round) {
        Solver solver;
        solver.reset(1);
        ZelLineMinimizer line;
        for (int i = 2 + below(6); i > 0; --i) {
            const double factor = below(2) ? 1 + below(3) : -1 - below(3);
            const double constant = below(41) - 20;
            const int relation = below(3) - 1;
            const float priority = float(1 + below(3));
            solver.addGoal({{0, factor}}, constant, Solver::Relation(relation), priority);
            line.addGoal(factor, constant, ZelLineMinimizer::Relation(relation), priority);
        }
        solver.solve();
        line.advance(0);
        const double value = solver.value(0);
        QVERIFY2(
            value > line.lower() - 1e-6 && value < line.upper() + 1e-6,
            qPrintable(
                QStringLiteral("round %1: %2 in %3..%4").arg(round).arg(value).arg(line.lower()).arg(line.upper())));
    }
}

QTEST_APPLESS_MAIN(tst_ZelConstraintSolver)
#include "tst_ZelConstraintSolver.moc"
