// SPDX-License-Identifier: MIT
#include "Observation/ZelDelayedInvocation.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/RunLoop/ZelNotificationCenter.h"

#include <QScopeGuard>
#include <cmath>

namespace {

/// One listener serves all invocations; thousands of listeners would make each checkpoint expensive.
class CheckpointListener : public ZelNotificationObserver
{
public:
    static void install() { static CheckpointListener listener; }
    void observeNotification(const ZelNotification &) override { ZelRunLoop::current()->performEarly(); }

private:
    CheckpointListener()
    {
        ZelNotificationCenter::defaultCenter()->addObserver(this, ZelDelayedInvocationCheckpointNotification);
    }
};

ZelDelayedInvocation::Block blockSending(const ZelSelector &selector, QObject *target)
{
    return [selector, target = QPointer<QObject>(target)] { selector.perform(target); };
}

} // namespace

ZelDelayedInvocation::ZelDelayedInvocation(const Block &block)
    : m_task(new Task(this, block))
{
    ZelRequire(bool(block), "block");
    CheckpointListener::install();
}

ZelDelayedInvocation::ZelDelayedInvocation(QObject *target, const ZelSelector &selector)
    : ZelDelayedInvocation(blockSending(selector, target))
{
}

ZelDelayedInvocation::~ZelDelayedInvocation()
{
    cancel();
    m_task->invocation = nullptr;
}

void ZelDelayedInvocation::setDelay(const std::optional<double> &delay)
{
    if (ZelRequire(!delay || !std::isnan(*delay), "!isnan(delay)"))
        m_task->delay = delay;
}

std::shared_ptr<ZelDelayedInvocation> ZelDelayedInvocation::scheduleDelayedInvocationWithBlock(const Block &block)
{
    auto invocation = std::make_shared<ZelDelayedInvocation>(block);
    invocation->schedule();
    // This request is performed right after the invocation. It does nothing, but keeps the invocation alive until then.
    ZelRunLoop::current()->perform([invocation] {}, defaultPriority);
    return invocation;
}

ZelDelayedInvocation::Task::Task(ZelDelayedInvocation *invocation, const Block &block)
    : invocation(invocation)
    , block(block)
    , lastCheckpoint(ZelRunLoop::current()->checkpoint())
{
}

void ZelDelayedInvocation::Task::schedule()
{
    if (!ZelCheck(!modes || !modes->isEmpty(), QStringLiteral("No run loop mode specified")))
        return;
    ZelRunLoop *loop = runLoop ? runLoop.data() : ZelRunLoop::current();
    const QStringList inModes = modes.value_or(QStringList());
    if (delay) {
        timer = loop->addTimer(ZelRunLoopTaskPtr(this), *delay, inModes);
        timerRunLoop = loop;
    } else {
        loop->perform(ZelRunLoopTaskPtr(this), priority.value_or(defaultPriority), inModes);
    }
    invocation->m_scheduled = true;
    cancelled = false;
    finished = false;
}

void ZelDelayedInvocation::Task::invoke()
{
    if (!isPending() || running || !block)
        return;
    const QExplicitlySharedDataPointer<Task> alive(this);
    running = true;
    const auto finish = qScopeGuard([this] {
        running = false;
        if (invocation)
            invocation->m_scheduled = false;
        finished = true;
    });
    block();
}

void ZelDelayedInvocation::Task::cancel()
{
    if (cancelled)
        return;
    cancelled = true;
    invocation->m_scheduled = false;
    if (timer && timerRunLoop)
        timerRunLoop->invalidateTimer(timer);
    timer = 0;
}

bool ZelDelayedInvocation::Task::performEarly(quint64 checkpoint)
{
    // An invocation runs once in a checkpoint, and not at all in the one during which it was made. Otherwise work that
    // schedules itself anew each time would never let the checkpoint end.
    if (!isPending() || delay || lastCheckpoint >= checkpoint)
        return false;
    lastCheckpoint = checkpoint;
    invoke();
    return true;
}
