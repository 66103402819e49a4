// SPDX-License-Identifier: MIT
#pragma once

#include <limits>
#include <vector>

/// What a child of a layout wants along one axis, in points.
struct ZelLayoutBox
{
    double hint = 0; ///< the length that it wants; a child without a wish has NoWish as its two priorities
    double minimum = 0;
    double maximum = std::numeric_limits<double>::infinity();
    float hugging = NoWish;     ///< the priority of not being longer than its hint; below 1000
    float compression = NoWish; ///< the priority of not being shorter than its hint; below 1000

    /// The priority of a child without a size hint.
    static constexpr float NoWish = 0.01F;
    /// Minimum and maximum are stronger than everything but required constraints and lengths that are not negative.
    static constexpr float LimitPriority = 999.8F;
    /// A length becomes negative only where required constraints leave no other.
    static constexpr float NotNegativePriority = 999.9F;
    /// A container whose length is not given is made as short as it can be after all stronger wishes are granted.
    static constexpr float FittingPriority = 0.5F;

    bool operator==(const ZelLayoutBox &) const = default;
};

/// Where a child ends up along one axis, in points from the container's start.
struct ZelLayoutSpan
{
    double start = 0;
    double length = 0;
    double end() const { return start + length; }
};

using ZelLayoutBoxes = std::vector<ZelLayoutBox>;
using ZelLayoutSpans = std::vector<ZelLayoutSpan>;
