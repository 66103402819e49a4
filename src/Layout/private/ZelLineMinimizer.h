// SPDX-License-Identifier: MIT
#pragma once

#include <limits>
#include <span>
#include <vector>

/// Lexicographic goals over a single number: the case of one unknown of ZelConstraintSolver, without a tableau.
///
/// Each goal is factor * x + constant = 0 (or <=, >=) with a priority. Levels are met from the highest down; each
/// narrows the interval of numbers that are still best. Within a level the sum of misses counts first, then the goals
/// in the order in which they were added.
class ZelLineMinimizer
{
public:
    enum Relation { NotAbove = -1, Equal = 0, NotBelow = 1 };

    void reset();
    void addGoal(double factor, double constant, Relation relation, float priority);
    /// Takes in the goals of that priority and above. Goals that are added later must have a lower one.
    void advance(float downTo);
    /// The ends of the interval of numbers that are still best.
    double lower() const { return m_lower; }
    double upper() const { return m_upper; }
    /// The best number, after advance(0): the least if several are as good.
    double value() const;

private:
    struct Goal
    {
        float priority = 0;
        int place = 0; // in the order of adding
        double factor = 1;
        double constant = 0;
        Relation relation = Equal;

        double zero() const { return -constant / factor; }
        bool resistsGrowth() const { return relation == Equal || (relation == NotAbove) == (factor > 0); }
        bool resistsShrinking() const { return relation == Equal || (relation == NotAbove) != (factor > 0); }
        double slopeAt(double x) const;
    };
    using Goals = std::span<const Goal>;

    void narrow(Goals goals);
    void narrowOneSided(Goals goals, bool growing);
    void narrowBetween(Goals goals);

    std::vector<Goal> m_goals; // those not yet taken in
    int m_added = 0;
    std::vector<double> m_points; // scratch of narrowBetween
    double m_lower = -std::numeric_limits<double>::infinity();
    double m_upper = std::numeric_limits<double>::infinity();
};
