// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>

/// Calls the function with parts of the range from 0 to the count, which together are all of it, on this thread and on
/// threads of the global pool, and returns when all is done. It does not wait for busy threads: they help when they
/// come in time. So it works, if need be on this thread alone, also for work within work.
///
/// The first exception ends the work, as far as it is not under way, and is thrown again here.
void ZelPerformConcurrently(qsizetype count, const std::function<void(qsizetype first, qsizetype end)> &function);
