// SPDX-License-Identifier: MIT
#pragma once

#include "Layout/private/ZelAxisConstraint.h"
#include "Layout/private/ZelLayoutBox.h"

#include <memory>
#include <optional>
#include <utility>

/// How a container of its fitting length resists along an axis; 0 where nothing resists.
struct ZelAxisResistance
{
    float hugging = 0;
    float compression = 0;
};

/// What was lately found out about a small axis, for other axes with equal constraints and boxes: the rows of a form
/// are built alike and want the same. An answer is kept only if no required constraint was left out for it.
struct ZelAxisAnswers
{
    using Constraints = std::shared_ptr<ZelAxisConstraints>;

    std::optional<double> fittingLength;
    std::optional<ZelAxisResistance> resistance;
    std::vector<std::pair<double, ZelLayoutSpans>> solutions; ///< the last few, by the container's length

    /// Answers null if no solution for that length is kept.
    const ZelLayoutSpans *solution(double length) const;
    void addSolution(double length, const ZelLayoutSpans &spans);

    static size_t hashOf(const ZelAxisConstraints &constraints);
    /// Answers what this thread knows of the axis, which may be nothing yet; null for a large axis, which is hardly
    /// ever like another. The answer is valid until the next call. The constraints are replaced by an equal list that
    /// another axis has, if there is one.
    static ZelAxisAnswers *of(Constraints &constraints, size_t hash, const ZelLayoutBoxes &boxes);
};
