// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelAxisParts.h"
#include "Platform/Layout/ZelConstraintSolver.h"
#include "Platform/Layout/ZelLayoutRow.h"

/// The constraints of a layout along one axis, and their solutions.
///
/// Boxes that no constraint ties to each other are solved apart when the container's length is given. Rows and boxes
/// pinned at both ends need no solver; the rest goes through ZelConstraintSolver.
class ZelLayoutAxis
{
public:
    void setConstraints(ZelAxisConstraints constraints, int boxCount);
    /// False if more than that one constraint depends on the constant, so that all must be set anew.
    bool setConstant(int constraint, double constant);
    /// The constraint, to change its offsets.
    ZelAxisConstraint &constraint(int index) { return m_constraints[size_t(index)]; }

    /// Where the boxes go in a container of that length.
    void solve(const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans);
    /// The length of a container without a length of its own: its boxes get what they want, then it is made short.
    double fittingLength(const ZelLayoutBoxes &boxes);
    /// The highest priority that is missed more when a container of that length changes by a point (or -1): how the
    /// container resists. 0 if nothing resists.
    float resistance(const ZelLayoutBoxes &boxes, double length, double change);

    /// The required constraints that the last solution left out.
    const std::vector<int> &leftOut() const { return m_leftOut; }
    /// The required constraints that a left-out one contradicts, itself last; none if it only contradicts a length
    /// given to the container.
    std::vector<int> conflict(int constraint);

    /// Everything through the general solver, for comparison; to be said before the constraints are set.
    void setSolvesGenerally(bool solvesGenerally) { m_solvesGenerally = solvesGenerally; }

private:
    enum class Kind : char { General, Row, Pinned };
    /// How a part is solved.
    struct Method
    {
        Kind kind = Kind::General;
        int row = -1; // in m_rows
        ZelRowPattern::Link startPin;
        ZelRowPattern::Link endPin;
    };
    using Part = ZelAxisParts::Part;
    using Length = std::optional<double>; // of the container; none: it is to be found

    Method methodFor(const Part &part);
    bool findPins(const Part &part, Method &method) const;
    int onlyBoxOf(const Part &part) const { return m_parts.boxesOf(part).front(); }

    void solvePart(size_t part, const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans);
    void placeFollowers(const ZelLayoutBoxes &boxes, ZelLayoutSpans &spans) const;
    double solveGenerally(std::span<const int> boxes, std::span<const int> constraints, const ZelLayoutBoxes &all,
                          Length length, ZelLayoutSpans &spans);
    void beginGoals(std::span<const int> boxes, Length length);
    void addConstraintGoal(int constraint, Length length);
    void addTerms(const ZelAxisConstraint::Operand &operand, double factor, Length length);
    double fitPinned(const ZelLayoutBoxes &boxes) const;
    double fitTogether(const ZelLayoutBoxes &boxes);
    bool isSatisfiable(std::span<const int> constraints);
    void addMisses(const ZelLayoutBoxes &boxes, double length, const ZelLayoutSpans &spans, double sign);
    void addMiss(float priority, double amount);

    ZelAxisConstraints m_constraints;
    ZelAxisParts m_parts;
    std::vector<Method> m_methods; // by part
    std::vector<ZelLayoutRow> m_rows;
    int m_boxCount = 0;
    std::vector<int> m_places; // of the boxes among those given to the solver
    std::vector<int> m_leftOut;
    std::vector<ZelConstraintSolver::Term> m_terms;
    std::vector<std::pair<float, double>> m_misses; // by priority
    double m_termConstant = 0;
    int m_lengthVariable = 0;
    bool m_solvesGenerally = false;
};
