// SPDX-License-Identifier: MIT
#include "Clock.h"

#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

namespace {
thread_local bool g_isStorm = false;
qint64 g_nanoseconds = 1'700'000'000'000'000'000;
} // namespace

void Clock::start()
{
    g_isStorm = true;
}

void Clock::advance(int milliseconds)
{
    g_nanoseconds += qint64(milliseconds) * 1'000'000;
}

quint64 Clock::milliseconds()
{
    return quint64(g_nanoseconds / 1'000'000);
}

/// Takes the place of the system's function, which Qt's timers ask.
extern "C" int clock_gettime(clockid_t clock, struct timespec *time) noexcept
{
    if (!g_isStorm)
        return int(syscall(SYS_clock_gettime, clock, time));
    g_nanoseconds += 1000; // whoever waits for the time to pass sees it pass
    time->tv_sec = time_t(g_nanoseconds / 1'000'000'000);
    time->tv_nsec = long(g_nanoseconds % 1'000'000'000);
    return 0;
}
