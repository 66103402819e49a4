// SPDX-License-Identifier: MIT
#pragma once

#include "Layout/private/ZelAxisConstraint.h"

#include <optional>
#include <span>

/// Boxes that follow each other along an axis, recognised from their constraints.
///
/// A row starts at a required distance from the container's start, and its gaps share one priority. It may have:
/// - an end constraint, which ties the last box to the container's end: required like the gaps, or of lower priority;
/// - a bound for each box, of higher priority than the gaps: the next box may start at most so far after this one's
///   start. A hidden box gives up its place by such a bound;
/// - a bound of the last box against the container's end, with a priority between the gaps' and the end constraint's;
/// - required limits of lengths;
/// - lengths that are all equal.
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
        Link gap;   ///< from the end of the member before it, or from the container's start, to its start
        Link bound; ///< the next member starts at most so far after its start
        Link minimum;
        Link maximum;
    };

    std::vector<Member> members; ///< in the order along the axis
    Link end;                    ///< places the last member's end, counted from the container's end
    Link lastBound;              ///< the least start or end of the last member, counted from the container's end
    bool isLastBoundOnEnd = false;
    bool hasEqualLengths = false;
    float gapPriority = 1000;

    /// Answers nothing if the boxes (in ascending order) are not a row or have other constraints as well.
    static std::optional<ZelRowPattern> recognize(std::span<const int> boxes, std::span<const int> constraints,
                                                  const ZelAxisConstraints &all);
};
