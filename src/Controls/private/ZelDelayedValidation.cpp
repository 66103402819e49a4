// SPDX-License-Identifier: MIT
#include "Controls/private/ZelDelayedValidation.h"

#include "Observation/ZelMajorEventObservation.h"
#include "Observation/ZelObservations.h"

namespace {

constexpr double g_delay = 0.1; // in seconds
constexpr quint32 g_priority = 800000;

} // namespace

ZelDelayedValidation::ZelDelayedValidation(const std::function<void()> &validate)
    : m_invocation(validate)
{
    m_invocation.setPriority(g_priority);
    m_invocation.setDelay(g_delay);
}

void ZelDelayedValidation::observeEvents(QObject *owner, const void *context)
{
    ZelObservations(owner).addObservation(
        ZelMajorEventObservation::observationWithBlock(
            [this](ZelMajorEventObservation *, QEvent *) { m_invocation.schedule(); }),
        context);
}
