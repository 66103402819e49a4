// SPDX-License-Identifier: MIT
#include "Extensions/ZelTimingLog.h"

#include "Core/Errors/ZelAssertions.h"

namespace {

constexpr double g_nanosecondsInMillisecond = 1e6;

QString milliseconds(qint64 nanoseconds)
{
    return QString::number(double(nanoseconds) / g_nanosecondsInMillisecond, 'f', 1) + QStringLiteral(" ms");
}

} // namespace

ZelTimingLog::ZelTimingLog(const char *name)
    : m_name(name)
{
    if (zelLog().isDebugEnabled())
        m_timer.start();
}

ZelTimingLog::~ZelTimingLog()
{
    if (m_timer.isValid())
        qCDebug(zelLog).noquote().nospace() << "TIMING: " << m_name << ": " << milliseconds(m_timer.nsecsElapsed());
}

void ZelTimingLog::lap(const char *name)
{
    if (!m_timer.isValid())
        return;
    const qint64 now = m_timer.nsecsElapsed();
    qCDebug(zelLog).noquote().nospace() << "TIMING: " << m_name << ", " << name << ": "
                                        << milliseconds(now - m_lapStart);
    m_lapStart = now;
}

double ZelTimingLog::elapsed() const
{
    return m_timer.isValid() ? double(m_timer.nsecsElapsed()) / g_nanosecondsInMillisecond : 0;
}
