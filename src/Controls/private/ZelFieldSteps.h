// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Ranges/ZelValueRange.h"
#include "Core/Undo/ZelUndoBurst.h"

class QKeyEvent;

/// How the number in a text field is stepped by keys and the wheel.
struct ZelFieldSteps
{
    ZelValueRange range;
    double increment = 0;
    int wheelAngle = 0;
    ZelUndoBurst burst;

    ZelFieldSteps();

    /// The number of increments by which a key steps, and 0 for any other key: one for Up and Down, ten for Page Up and
    /// Page Down; Shift makes them ten times as many, Alt a tenth.
    static double stepsForKey(const QKeyEvent *event);
    /// What Shift and Alt make of a step.
    static double factorFor(Qt::KeyboardModifiers modifiers);
};
