// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QElapsedTimer>

/// Logs how long a piece of work took, from its construction to its destruction, for the developer.
///
///     ZelTimingLog timing("open drawing");
///     read();
///     timing.lap("read"); // "TIMING: open drawing, read: 12.3 ms"
///     show();
///
/// The lines go to the category "zel" as debug messages; where those are switched off, nothing is measured.
class ZEL_EXPORT ZelTimingLog
{
public:
    /// The name must live as long as the log: a literal.
    explicit ZelTimingLog(const char *name);
    ~ZelTimingLog();
    Q_DISABLE_COPY_MOVE(ZelTimingLog)

    /// Logs the time since the last lap, or the start.
    void lap(const char *name);
    /// The milliseconds since the start; 0 where nothing is measured.
    double elapsed() const;

private:
    const char *m_name;
    QElapsedTimer m_timer; // not started where nothing is measured
    qint64 m_lapStart = 0; // in nanoseconds
};
