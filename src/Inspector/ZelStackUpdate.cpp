// SPDX-License-Identifier: MIT
#include "Inspector/ZelStackUpdate.h"

#include "Core/KeyValue/private/ZelChangeDelivery.h"
#include "Observation/ZelDelayedInvocation.h"

struct ZelStackUpdate::State
{
    explicit State(const std::function<void()> &work)
        : update(work)
        , invocation([this] { performIfDue(); })
    {
    }

    void performIfDue()
    {
        if (std::exchange(isDue, false))
            update();
    }

    std::function<void()> update;
    ZelDelayedInvocation invocation; // runs the update earlier if an observer runs an event loop of its own
    bool isDue = false;
};

ZelStackUpdate::ZelStackUpdate(const std::function<void()> &update)
    : m_state(std::make_shared<State>(update))
{
}

ZelStackUpdate::~ZelStackUpdate()
{
    m_state->isDue = false;
}

void ZelStackUpdate::request()
{
    const std::shared_ptr<State> state = m_state;
    const bool wasDue = std::exchange(state->isDue, true);
    if (!ZelChangeDelivery::isUnderWay())
        return state->performIfDue();
    if (wasDue)
        return;
    state->invocation.schedule();
    ZelChangeDelivery::afterwards([waiting = std::weak_ptr<State>(state)] {
        if (const std::shared_ptr<State> due = waiting.lock())
            due->performIfDue();
    });
}
