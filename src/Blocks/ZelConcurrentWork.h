// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>

/// Calls the function with parts of the range from 0 to the count, which together are all of it, on this thread and on
/// those that the global thread pool has to spare, and returns when all is done. So it also works, on this thread
/// alone, where the pool is busy, as it is for work within work.
///
/// The first exception ends the work, as far as it is not under way, and is thrown again here.
void ZelPerformConcurrently(qsizetype count, const std::function<void(qsizetype first, qsizetype end)> &function);
