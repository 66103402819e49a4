// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QVariant>
#include <functional>

/// The limits of a control, which may be any doubles. Infinite limits count as the largest finite double. A range that
/// is empty or has a limit that is not a number answers its minimum, or 0.
class ZEL_EXPORT ZelValueRange
{
public:
    double minimum = 0;
    double maximum = 1;

    bool isEmpty() const;
    double clamp(double value) const;
    /// Where the value lies between the limits, from 0 to 1; 0 in an empty range.
    double fractionOf(double value) const;
    /// The value at a fraction from 0 to 1.
    double valueAt(double fraction) const;
    /// The value plus the increment, without the noise of binary fractions, clamped to the limits.
    double stepped(double value, double increment) const;
    /// The value, or if it is beyond a limit, the one within them that a circle of that length has at the same place.
    double wrapped(double value) const;

    /// What a control's value becomes when it is stepped: a number for a number, and for none, which counts as the
    /// fallback. Several different values, or a change of them, become a ZelNumberChange that steps each object from
    /// its own number. With `wraps`, a step beyond one limit goes on at the other one.
    QVariant steppedValue(const QVariant &value, double increment, double fallback = 0, bool wraps = false) const;

    /// An integer plus the increment, exactly, and clamped to the limits; no function for an increment that is none.
    std::function<QVariant(const QVariant &integer)> integerStep(double increment) const;

    /// Answers the nearest of the maximum and the values that are a whole number of increments from the minimum; the
    /// value itself if the range is empty or the increment cannot be used.
    double nearestStep(double value, double increment) const;

    /// The value as a finite double; the fallback for absent values, markers and everything that is no finite number.
    static double number(const QVariant &value, double fallback = 0);
};
