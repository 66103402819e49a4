// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelSelector.h"
#include "Core/RunLoop/ZelRunLoop.h"
#include "Core/ZelExport.h"

#include <QPointer>
#include <functional>
#include <memory>
#include <optional>

// Posted by a window before it paints, the window as the sender.
inline const QString ZelWindowDisplayCheckpointNotification = QStringLiteral("ZelWindowDisplayCheckpointNotification");
/// Makes every pending invocation without a delay run at once, whoever posts it. Posted after the one above.
inline const QString ZelDelayedInvocationCheckpointNotification =
    QStringLiteral("ZelDelayedInvocationCheckpointNotification");

/// Work that may be scheduled many times and runs once: at the end of the run loop's turn, or after a delay.
///
/// An owner keeps one invocation for each purpose and schedules it again and again. Without a delay a checkpoint runs
/// it early, so that a frame about to be painted is up to date. While the work runs, its invocation may be destroyed;
/// scheduling it from within the work has no effect. Destroying an invocation cancels it. An invocation is used on the
/// thread of its run loop only.
///
///     ZelDelayedInvocation m_updateViewInvocation{[this] { updateView(); }};
class ZEL_EXPORT ZelDelayedInvocation
{
public:
    using Block = std::function<void()>;
    /// Runs early among the work of a turn.
    static constexpr quint32 defaultPriority = 349999;

    /// Asserts "block".
    explicit ZelDelayedInvocation(const Block &block);
    /// Sends the selector, without an argument, to the target; to nothing once that has died.
    ZelDelayedInvocation(QObject *target, const ZelSelector &selector);
    ~ZelDelayedInvocation();
    Q_DISABLE_COPY_MOVE(ZelDelayedInvocation)

    /// A new invocation that is scheduled already. The request keeps it alive, so that the answer may be dropped.
    static std::shared_ptr<ZelDelayedInvocation> scheduleDelayedInvocationWithBlock(const Block &block);

    // What the next schedule() uses.
    /// Null stands for the run loop of the thread that schedules.
    ZelRunLoop *runLoop() const { return m_task->runLoop; }
    void setRunLoop(ZelRunLoop *runLoop) { m_task->runLoop = runLoop; }
    /// The modes in which it may run; nothing stands for the default mode and the common modes.
    const std::optional<QStringList> &runLoopModes() const { return m_task->modes; }
    void setRunLoopModes(const std::optional<QStringList> &modes) { m_task->modes = modes; }
    /// The order within the turn, lower is earlier; nothing stands for defaultPriority. Without effect with a delay.
    const std::optional<quint32> &priority() const { return m_task->priority; }
    void setPriority(const std::optional<quint32> &priority) { m_task->priority = priority; }
    /// In seconds; nothing is no delay: the work runs at the end of the turn. For a delay that is no number, asserts
    /// "!isnan(delay)" and keeps the former one.
    const std::optional<double> &delay() const { return m_task->delay; }
    void setDelay(const std::optional<double> &delay);

    /// Whether the work changes nothing and only shows what is there; false unless set. Such works that run one after
    /// the other share what they read of a large selection.
    bool onlyReads() const { return m_task->reads; }
    void setOnlyReads(bool onlyReads) { m_task->reads = onlyReads; }

    bool isScheduled() const { return m_scheduled; }
    bool isFinished() const { return m_task->finished; }
    bool isCancelled() const { return m_task->cancelled; }
    /// Whether it is scheduled, and neither cancelled nor finished.
    bool isPending() const { return m_task->isPending(); }

    /// Does nothing if it is scheduled already. Asserts "No run loop mode specified" for an empty list of modes.
    void schedule()
    {
        if (!m_scheduled)
            m_task->schedule();
    }
    /// Runs the work now if it is pending.
    void invoke() { m_task->invoke(); }
    /// Forgets a scheduled run. The invocation may be scheduled again.
    void cancel() { m_task->cancel(); }

private:
    /// The part that the run loop holds on to. Requests need not be withdrawn, since an outdated one does nothing.
    struct Task : ZelRunLoopTask
    {
        Task(ZelDelayedInvocation *invocation, const Block &block);
        bool isPending() const { return invocation && invocation->m_scheduled && !cancelled && !finished; }
        void schedule();
        void invoke();
        void cancel();
        void perform() override { invoke(); }
        bool onlyReads() const override { return reads || !isPending(); }
        bool performEarly(quint64 checkpoint) override;

        ZelDelayedInvocation *invocation; // null once destroyed
        Block block;
        QPointer<ZelRunLoop> runLoop;
        std::optional<QStringList> modes;
        std::optional<double> delay;
        std::optional<quint32> priority;
        QPointer<ZelRunLoop> timerRunLoop;
        int timer = 0;
        bool finished = false;
        bool cancelled = false;
        bool running = false;
        bool reads = false;
        quint64 lastCheckpoint;
    };
    QExplicitlySharedDataPointer<Task> m_task;
    bool m_scheduled = false; // not in the task, since most calls of schedule() read nothing else
};
