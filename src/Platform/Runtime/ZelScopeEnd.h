// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelAssertions.h"

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
    try {
        work();
    } catch (const std::exception &exception) {
        ZelReportFailure(QString::fromUtf8(exception.what()));
    } catch (...) {
        ZelReportFailure(QStringLiteral("Unknown exception at the end of a scope"));
    }
}
