// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelExceptionReporter.h"

#include <exception>

/// Does the work of a destructor that tells others of something. What they throw goes on to whoever owns the scope, as
/// from any other call. Where an exception is what ends the scope it is reported instead, since two cannot be under
/// way.
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
