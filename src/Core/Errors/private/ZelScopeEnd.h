// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelExceptionReporter.h"

#include <exception>

/// Does the work of a destructor that tells others of something. What they throw leaves the destructor, as from any
/// other call. If the scope is ended by an exception, theirs is reported instead, since two cannot be under way.
///
/// The second argument is std::uncaught_exceptions() at the beginning of the scope. The destructor is noexcept(false).
template<typename Work> void ZelRunAtScopeEnd(Work work, int uncaughtAtBeginning)
{
    if (std::uncaught_exceptions() <= uncaughtAtBeginning) {
        work();
        return;
    }
    ZelExceptionReporter::run(nullptr, work);
}
