// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

/// The limits of a control, safe for any doubles: infinite ones count as the largest finite double, and a range that
/// is empty or not a number answers its minimum, or 0.
class ZelValueRange
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
    /// The value an increment further, without the noise of binary fractions, clamped.
    double stepped(double value, double increment) const;

    /// The value that is a whole number of increments from the minimum, or the maximum, whichever is nearest; the value
    /// itself where the increment or the minimum leads nowhere.
    double nearestStep(double value, double increment) const;

    /// The value as a finite double; the fallback for absent values, markers and all that is no number.
    static double number(const QVariant &value, double fallback = 0);
};
