// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/private/ZelFirstException.h"

#include <functional>
#include <vector>

/// Counts the changes that observers are being told of at present, on the main thread.
///
/// Many observers of one change may need the same work. They put it off (afterwards), and it is done once, when all of
/// them have been told and before the call that made the change returns.
class ZelChangeDelivery
{
public:
    /// Runs the work that tells observers. Work that was put off is done after the outermost delivery, even if an
    /// observer threw; the first exception is thrown on.
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
    /// Puts work off until after the outermost delivery. A delivery must be under way.
    static void afterwards(std::function<void()> work) { s_waiting.push_back(std::move(work)); }

private:
    static void performWaiting();

    inline static int s_depth = 0;
    inline static std::vector<std::function<void()>> s_waiting;
};
