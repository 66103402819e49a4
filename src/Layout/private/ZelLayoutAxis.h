// SPDX-License-Identifier: MIT
#pragma once

#include "Layout/private/ZelAxisAnswers.h"
#include "Layout/private/ZelAxisParts.h"
#include "Layout/private/ZelConstraintSolver.h"
#include "Layout/private/ZelLayoutRow.h"

/// The constraints of a layout along one axis, and their solutions.
///
/// Boxes that no constraint ties to each other are solved apart when the container's length is given. Rows and boxes
/// pinned at both ends need no solver; the rest goes through ZelConstraintSolver. Axes that are alike share their
/// answers (ZelAxisAnswers), so the constraints are divided into parts only when an answer is not known yet.
class ZelLayoutAxis
{
public:
    void setConstraints(ZelAxisConstraints constraints, int boxCount);
    void setConstant(int constraint, double constant) { change(constraint).constant = constant; }
    /// The offset of a constraint's first or second operand.
    double offset(int constraint, bool isSecond) const;
    void setOffset(int constraint, bool isSecond, double offset);

    /// Places the boxes in a container of that length.
    void solve(const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans);
    /// Answers the length that a container takes when none is given: its boxes get what they want, and then it is made
    /// as short as possible.
    double fittingLength(const ZelLayoutBoxes &boxes);
    /// Answers how a container of its fitting length resists being longer or shorter: with the highest priority whose
    /// goals are missed by more when its length changes by a point.
    ZelAxisResistance resistance(const ZelLayoutBoxes &boxes);

    /// The required constraints that the last solution left out.
    const std::vector<int> &leftOut() const { return m_leftOut; }
    /// The required constraints that a left-out one contradicts, itself last. There are none if it contradicts only the
    /// length that was given to the container.
    std::vector<int> conflict(int constraint);

    /// For comparison: has everything solved by the general solver, and nothing taken from memory. Must be called
    /// before the constraints are set.
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
    using Length = std::optional<double>; // of the container; none if it is to be found

    const ZelAxisConstraints &all() const { return *m_constraints; }
    /// Answers the constraint for a change; constraints shared with other axes are copied before.
    ZelAxisConstraint &change(int constraint);
    /// Begins a question and answers what is known for these boxes; null where answers are neither known nor kept.
    ZelAxisAnswers *answers(const ZelLayoutBoxes &boxes);
    void takeApart();
    Method methodFor(const Part &part);
    bool findPins(const Part &part, Method &method) const;
    int onlyBoxOf(const Part &part) const { return m_parts.boxesOf(part).front(); }

    void findSolution(const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans);
    double findFittingLength(const ZelLayoutBoxes &boxes);
    float findResistance(const ZelLayoutBoxes &boxes, double length, double change);
    void solvePart(size_t part, const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans);
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

    ZelAxisAnswers::Constraints m_constraints = std::make_shared<ZelAxisConstraints>(); // shared with equal axes
    size_t m_hash = 0; // of the constraints; 0 until it is needed
    bool m_isTakenApart = false;
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
