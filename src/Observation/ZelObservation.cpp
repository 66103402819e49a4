// SPDX-License-Identifier: MIT
#include "Observation/ZelObservation.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"

#include <mutex>

namespace {

/// One lock for all observations: they are cancelled rarely, and there are very many of them.
std::recursive_mutex &cancelMutex()
{
    static auto *mutex =
        new std::recursive_mutex; // never deleted, since some observations are cancelled after the statics are gone
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
        // This mostly happens within a destructor, which an exception must not leave; taking down a binding may make
        // the application throw.
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
