// SPDX-License-Identifier: MIT
#pragma once

#include "Step.h"

/// How the steps of a run ended.
struct Outcome
{
    bool failed = false;
    int step = -1;     ///< the last one that was begun
    QByteArray what;   ///< what was found; runs that find the same thing have the same
    QByteArray detail; ///< what the step was doing
    QByteArray output; ///< what the process wrote
    int checks = 0;
    int roundTrips = 0;
    int faults = 0;
};

/// Runs steps in a process of its own.
class Run
{
public:
    static Outcome of(const Steps &steps);
    /// Looks for a short part of the steps that still ends in the same way.
    static Steps shrink(const Steps &steps, const Outcome &outcome);
    /// Seconds without any progress after which a run counts as hanging.
    inline static int patience = 60;
};
