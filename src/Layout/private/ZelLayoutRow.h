// SPDX-License-Identifier: MIT
#pragma once

#include "Layout/private/ZelLayoutBox.h"
#include "Layout/private/ZelRowPattern.h"

class ZelLineMinimizer;

/// Solves a row of boxes in time proportional to their number.
///
/// The answers are those of ZelConstraintSolver for the same constraints and boxes. A row that one pass cannot solve is
/// refused, and the general solver must take it.
class ZelLayoutRow
{
public:
    explicit ZelLayoutRow(ZelRowPattern pattern)
        : m_pattern(std::move(pattern))
    {
    }

    const ZelRowPattern &pattern() const { return m_pattern; }
    bool reachesEnd() const { return m_pattern.end.isSet(); }
    /// Places the boxes in a container of that length. Answers false if the general solver must do it.
    bool solve(const ZelAxisConstraints &all, const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans);
    /// Answers the length that a container takes when none is given; nothing if the general solver must find it.
    std::optional<double> fittingLength(const ZelAxisConstraints &all, const ZelLayoutBoxes &boxes);

private:
    /// A member's numbers during a solution.
    struct State
    {
        double length = 0;
        double minimum = 0; // what its own limits allow
        double maximum = 0;
        double requiredMinimum = 0; // what required constraints allow
        double requiredMaximum = 0;
        double gapAfter = 0;
        double boundAfter = 0; // the furthest start of the next member, counted from its own start
        float hugging = 0;
        float compression = 0;

        double cap() const { return boundAfter - gapAfter; } // a longer member reaches into the gap after it
        double step() const { return std::min(length + gapAfter, boundAfter); }
    };

    bool prepare(const ZelAxisConstraints &all, const ZelLayoutBoxes &boxes);
    bool prepareLimits(State &state, const ZelRowPattern::Member &member, const ZelAxisConstraints &all,
                       const ZelLayoutBox &box) const;
    void giveWayToBounds();
    double extent(bool toLastEnd) const;
    double stretch(double amount, size_t memberCount, float below);
    double compress(double amount, size_t firstMember, float below);
    double takeAway(double amount, double beforeLast, float below);
    bool fillContainer(const ZelAxisConstraints &all, double length);
    bool equalize(const ZelAxisConstraints &all, const ZelLayoutBoxes &boxes, std::optional<double> length);
    void addLengthGoals(ZelLineMinimizer &line, const ZelLayoutBoxes &boxes) const;
    bool addContainerGoals(ZelLineMinimizer &line, const ZelAxisConstraints &all, double length) const;
    void addFittingGoals(ZelLineMinimizer &line, const ZelAxisConstraints &all) const;
    void place(ZelLayoutSpans &spans) const;

    ZelRowPattern m_pattern;
    std::vector<State> m_states;
    double m_start = 0; // of the first member
};
