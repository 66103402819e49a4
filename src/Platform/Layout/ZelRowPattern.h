// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelAxisConstraint.h"

#include <optional>
#include <span>

/// Boxes that follow each other along an axis, recognised from their constraints.
///
/// A row starts at a required distance from the container's start; its gaps share one priority. It may have: an end
/// constraint of its last box (required like the gaps, or below them); a bound for each box on how far after it the
/// next may start, above the gaps, which is how a hidden box gives up its place; a bound of the last box against the
/// container's end, between the gaps and the end constraint; required limits of lengths; lengths that are all equal.
struct ZelRowPattern
{
    /// A constraint, and the sign of its constant once its operands stand in the order that the row expects.
    struct Link
    {
        int constraint = -1;
        double sign = 1;

        bool isSet() const { return constraint >= 0; }
        double in(const ZelAxisConstraints &all) const { return sign * all[size_t(constraint)].bias(); }
    };
    struct Member
    {
        int box = 0;
        Link gap;   ///< its start after the end of the member before it, or after the container's start
        Link bound; ///< the start of the next member is at most so far after its own
        Link minimum;
        Link maximum;
    };

    std::vector<Member> members; ///< in the order along the axis
    Link end;                    ///< the last end against the container's end
    Link lastBound;              ///< the last start or end is at least there, against the container's end
    bool isLastBoundOnEnd = false;
    bool hasEqualLengths = false;
    float gapPriority = 1000;

    /// None if the boxes (in ascending order) are not a row or have other constraints as well.
    static std::optional<ZelRowPattern> recognize(std::span<const int> boxes, std::span<const int> constraints,
                                                  const ZelAxisConstraints &all);
};
