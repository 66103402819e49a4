// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QtGlobal>

#include <functional>

/// Divides the range from 0 to `count` into parts, calls the function with each part, on this thread and on threads of
/// the global pool, and returns when all parts are done. It does not wait for threads that are busy with other work: a
/// thread helps if it comes in time. Calls may therefore be nested, and are done by this thread alone if need be.
///
/// After an exception no further part is begun. The first exception is thrown again here.
ZEL_EXPORT void ZelPerformConcurrently(qsizetype count,
                                       const std::function<void(qsizetype first, qsizetype end)> &function);
