// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// The time of the storm: timers fire when it is moved on, however long the steps take, so that a run can be repeated.
class Clock
{
public:
    /// From now on this thread's clocks stand still but for `advance`.
    static void start();
    static void advance(int milliseconds);
    static quint64 milliseconds();
};
