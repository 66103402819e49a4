// SPDX-License-Identifier: MIT
#include "Layout/private/ZelLineMinimizer.h"

#include <algorithm>
#include <cmath>

// The sum of misses of a level is convex and made of straight pieces that meet where a goal is met exactly. Slopes only
// grow from piece to piece, so its least values begin where the slope stops being negative, which halving finds. Most
// levels have goals of one direction only ("not below the hints"); the greatest or least of the points is their answer.

void ZelLineMinimizer::reset()
{
    m_goals.clear();
    m_added = 0;
    m_lower = -std::numeric_limits<double>::infinity();
    m_upper = std::numeric_limits<double>::infinity();
}

void ZelLineMinimizer::addGoal(double factor, double constant, Relation relation, float priority)
{
    if (factor == 0)
        return;
    if (m_goals.empty())
        m_goals.reserve(16); // those of a few boxes
    m_goals.push_back({priority, m_added++, factor, constant, relation});
}

void ZelLineMinimizer::advance(float downTo)
{
    std::sort(m_goals.begin(), m_goals.end(), [](const Goal &a, const Goal &b) {
        return a.priority != b.priority ? a.priority > b.priority : a.place < b.place;
    });
    auto goal = m_goals.begin();
    while (goal != m_goals.end() && goal->priority >= downTo) {
        const auto level = goal;
        goal = std::find_if(level, m_goals.end(), [&](const Goal &other) { return other.priority != level->priority; });
        narrow({level, goal});
    }
    m_goals.erase(m_goals.begin(), goal);
}

double ZelLineMinimizer::value() const
{
    if (std::isfinite(m_lower))
        return m_lower;
    return std::isfinite(m_upper) ? m_upper : 0;
}

/// The slope of the miss just above x.
double ZelLineMinimizer::Goal::slopeAt(double x) const
{
    if (x >= zero())
        return resistsGrowth() ? std::abs(factor) : 0;
    return resistsShrinking() ? -std::abs(factor) : 0;
}

void ZelLineMinimizer::narrow(Goals goals)
{
    if (m_lower >= m_upper)
        return;
    if (std::none_of(goals.begin(), goals.end(), [](const Goal &goal) { return goal.resistsShrinking(); }))
        return narrowOneSided(goals, true);
    if (std::none_of(goals.begin(), goals.end(), [](const Goal &goal) { return goal.resistsGrowth(); }))
        return narrowOneSided(goals, false);
    narrowBetween(goals);
    for (size_t i = 0; i < goals.size() && goals.size() > 1 && m_lower < m_upper; ++i)
        narrowBetween(goals.subspan(i, 1));
}

void ZelLineMinimizer::narrowOneSided(Goals goals, bool growing)
{
    const auto byZero = [](const Goal &a, const Goal &b) { return a.zero() < b.zero(); };
    if (growing)
        m_upper = std::clamp(std::min_element(goals.begin(), goals.end(), byZero)->zero(), m_lower, m_upper);
    else
        m_lower = std::clamp(std::max_element(goals.begin(), goals.end(), byZero)->zero(), m_lower, m_upper);
}

void ZelLineMinimizer::narrowBetween(Goals goals)
{
    std::vector<double> &points = m_points;
    points.clear();
    for (const Goal &goal : goals) {
        if (goal.zero() > m_lower && goal.zero() < m_upper)
            points.push_back(goal.zero());
    }
    std::sort(points.begin(), points.end());
    const auto slopeAbove = [&](double x) {
        double sum = 0;
        for (const Goal &goal : goals)
            sum += goal.slopeAt(x);
        return sum;
    };
    // The pieces are those above the lower end and above each point.
    size_t count = points.size() + 1;
    const auto pieceStart = [&](size_t piece) { return piece == 0 ? m_lower : points[piece - 1]; };
    const auto pieceEnd = [&](size_t piece) { return piece < points.size() ? points[piece] : m_upper; };
    constexpr double Flat = 1e-9;
    size_t first = 0; // the first piece that does not fall
    while (count > 0) {
        const size_t half = count / 2;
        if (slopeAbove(pieceStart(first + half)) < -Flat) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    if (first > points.size()) {
        m_lower = m_upper;
        return;
    }
    size_t last = first; // past the flat pieces
    while (last <= points.size() && slopeAbove(pieceStart(last)) < Flat)
        ++last;
    const double lower = pieceStart(first);
    m_upper = last == first ? lower : pieceEnd(last - 1);
    m_lower = lower;
}
