// SPDX-License-Identifier: MIT
#pragma once

#include <limits>
#include <vector>

/// What a child of a layout wants along one axis, in points.
struct ZelLayoutBox
{
    double hint = 0; ///< the length that it wants; what it is without a wish is a matter of the two priorities
    double minimum = 0;
    double maximum = std::numeric_limits<double>::infinity();
    float hugging = NoWish;     ///< how it resists being longer than its hint; less than required
    float compression = NoWish; ///< how it resists being shorter

    /// The priority of a child without a size hint: below everything that can be asked for.
    static constexpr float NoWish = 0.01F;
    /// The minimum and the maximum give way to required constraints alone, and a negative length to nothing else.
    static constexpr float LimitPriority = 999.8F;
    static constexpr float NotNegativePriority = 999.9F;
    /// A container without a length of its own is made short after all wishes are granted.
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
