// SPDX-License-Identifier: MIT
#include "Observation/ZelObservation.h"

#include "Platform/Runtime/ZelAssertions.h"
#include "Platform/Runtime/ZelExceptionReporter.h"

#include <mutex>

namespace {

/// One lock for all observations: they are cancelled rarely, and there are very many of them.
std::recursive_mutex &cancelMutex()
{
    static auto *mutex = new std::recursive_mutex; // some are cancelled after the last static is gone
    return *mutex;
}

} // namespace

void ZelObservation::cancel()
{
    const std::lock_guard lock(cancelMutex());
    if (isCancelled())
        return;
    m_cancelled = true;
    const Delivery hold(this); // what is dropped below may let go of this observation, too
    stop();
}

void ZelObservation::release(ZelObservation *observation)
{
    if (!observation->isCancelled()) {
        ZelReportFailure(QStringLiteral("Observation is not cancelled: ") + observation->description());
        // Within a destructor, as a rule: what taking down a binding makes an application throw must not leave it.
        ZelExceptionReporter::run(nullptr, [observation] { observation->cancel(); });
    }
    observation->m_released = true;
    if (observation->m_deliveries == 0)
        delete observation;
}

void ZelObservation::endLastDelivery()
{
    if (!m_released) {
        ++m_deliveries; // the callback may hold the last reference to its own observation
        dropCallback();
        --m_deliveries;
    }
    if (m_released)
        delete this;
}

QString ZelObservation::title(const char *className) const
{
    return QStringLiteral("<%1: 0x%2>").arg(QLatin1String(className), QString::number(quintptr(this), 16));
}
