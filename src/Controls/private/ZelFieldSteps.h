// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Ranges/ZelValueRange.h"
#include "Core/Undo/ZelUndoBurst.h"
#include "Core/Values/ZelAbstractValueTransformer.h"

#include <functional>

class QKeyEvent;

/// How the number in a text field is stepped by keys and the wheel.
struct ZelFieldSteps
{
    ZelValueRange range;
    double increment = 0;
    bool wraps = false;                 // whether a step beyond one limit goes on at the other one
    ZelValueTransformerPtr transformer; // increment and limits count in what it makes the shown numbers of
    int wheelAngle = 0;
    ZelUndoBurst burst;

    ZelFieldSteps();

    /// Steps a number by so many increments. With 0 it answers the number within the limits.
    std::function<double(double number, double count)> function() const;
    /// Steps a field's value: one number, none, or several, each from its own.
    QVariant steppedValue(const QVariant &value, double count) const;

    /// The number of increments by which a key steps, and 0 for any other key: one for Up and Down, ten for Page Up and
    /// Page Down; Shift makes them ten times as many, Alt a tenth.
    static double stepsForKey(const QKeyEvent *event);
    /// What Shift and Alt make of a step.
    static double factorFor(Qt::KeyboardModifiers modifiers);
};
