// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelAxisAnswers.h"
#include "Platform/Layout/ZelLayoutAxis.h"

#include <memory>

/// The constraints of a layout along one axis, and their solutions, which axes that are alike find only once.
///
/// The axis behind it, which takes the constraints apart, is not made before there is a question that none has asked.
class ZelSharedAxis
{
public:
    void setConstraints(ZelAxisConstraints constraints, int boxCount);
    void setConstant(int constraint, double constant);
    /// The offset of a constraint's first or second operand.
    double offset(int constraint, bool isSecond) const;
    void setOffset(int constraint, bool isSecond, double offset);

    // As those of ZelLayoutAxis
    void solve(const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans);
    double fittingLength(const ZelLayoutBoxes &boxes);
    ZelAxisAnswers::Resistance resistance(const ZelLayoutBoxes &boxes);
    const std::vector<int> &leftOut() const;
    std::vector<int> conflict(int constraint) { return axis().conflict(constraint); }

private:
    ZelLayoutAxis &axis();
    /// Null for an axis that is too large to be like others.
    ZelAxisAnswers::Entry *answers(const ZelLayoutBoxes &boxes);
    /// Whether the last answer of the axis is one to keep.
    bool isWhole() const { return m_axis->leftOut().empty(); }

    const ZelAxisConstraints &constraints() const { return m_shared ? *m_shared : m_own; }
    /// To change a constraint.
    ZelAxisConstraint &constraint(int index);

    ZelAxisConstraints m_own; // until there is a question
    ZelAxisAnswers::Constraints m_shared;
    int m_boxCount = 0;
    bool m_isLastFromAxis = false;
    std::unique_ptr<ZelLayoutAxis> m_axis;
};
