// SPDX-License-Identifier: MIT
#include "Observation/ZelMajorEventObservation.h"

#include "Core/Errors/ZelAssertions.h"

QSharedPointer<ZelMajorEventObservation> ZelMajorEventObservation::observationWithBlock(Block block)
{
    if (!ZelRequire(bool(block), "block"))
        return {};
    return started<ZelMajorEventObservation>(std::move(block));
}

ZelMajorEventObservation::ZelMajorEventObservation(Block block)
    : m_block(std::move(block))
{
}

void ZelMajorEventObservation::start()
{
    m_monitor = std::make_unique<ZelEventMonitor>(eventMask, [this](QEvent *event) { observeEvent(event); });
}

void ZelMajorEventObservation::observeEvent(QEvent *event)
{
    if (isCancelled())
        return;
    const Delivery delivery(this);
    m_block(this, event);
}
