// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelFirstException.h"

#include <functional>
#include <vector>

/// The changes that observers are being told of at present, on the main thread.
///
/// Many observers of one change may ask for the same work. It is done once, when all of them have been told and before
/// the call that made the change returns.
class ZelChangeDelivery
{
public:
    /// Tells observers. What waits is done after the outermost delivery, also where an observer threw; the first
    /// exception goes on.
    template<typename Work> static void run(Work &&work)
    {
        ZelFirstException failure;
        ++s_depth;
        failure.run(std::forward<Work>(work));
        if (--s_depth == 0 && !s_waiting.empty())
            failure.run(&ZelChangeDelivery::performWaiting);
        failure.rethrow();
    }

    static bool isUnderWay() { return s_depth > 0; }
    /// Does the work after the outermost delivery. One must be under way.
    static void afterwards(std::function<void()> work) { s_waiting.push_back(std::move(work)); }

private:
    static void performWaiting();

    inline static int s_depth = 0;
    inline static std::vector<std::function<void()>> s_waiting;
};
