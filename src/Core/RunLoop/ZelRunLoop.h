// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelRunLoopTask.h"
#include "Core/ZelExport.h"

#include <QObject>
#include <QStringList>
#include <functional>
#include <vector>

// Modes of a run loop. The common modes are the first three together.
inline const QString ZelDefaultRunLoopMode = QStringLiteral("ZelDefaultRunLoopMode");
inline const QString ZelEventTrackingRunLoopMode = QStringLiteral("ZelEventTrackingRunLoopMode");
inline const QString ZelModalPanelRunLoopMode = QStringLiteral("ZelModalPanelRunLoopMode");
inline const QString ZelRunLoopCommonModes = QStringLiteral("ZelRunLoopCommonModes");

/// Ordered end-of-turn work and one-shot timers of one thread, on Qt's event dispatcher.
///
/// Work that is requested while an event is handled is performed after the events that are posted already: lower orders
/// first, equal orders in the order of their requests. A request names the modes in which it may run; while the loop is
/// in another mode it waits. Requests that are made by work are performed in the next turn. Work that opens an event
/// loop of its own does not hold up what is queued behind it. What work throws goes to the exception reporter, and the
/// rest is performed all the same.
///
/// A run loop is used on its own thread only, and lives as long as the thread (the main thread's: as the application).
class ZEL_EXPORT ZelRunLoop : public QObject
{
    Q_OBJECT
public:
    /// The calling thread's run loop.
    static ZelRunLoop *current();
    ~ZelRunLoop() override;

    /// ZelDefaultRunLoopMode, unless a ZelRunLoopModeScope set another.
    const QString &currentMode() const { return m_mode; }

    /// Performs the work once, at the end of a turn in one of the modes; without any, in one of the common modes.
    void perform(ZelRunLoopTaskPtr task, quint32 order, const QStringList &modes = {});
    void perform(const std::function<void()> &block, quint32 order, const QStringList &modes = {});

    /// Performs the work once, so many seconds from now (0 or more), or later when the loop is in one of the modes
    /// again. Answers the timer's number, never 0.
    int addTimer(ZelRunLoopTaskPtr task, double seconds, const QStringList &modes = {});
    /// Does nothing for a timer that has fired.
    void invalidateTimer(int timer);

    /// Asks all queued tasks, in their order and whatever the mode, to run before the end of the turn if they want to;
    /// also those that get queued meanwhile.
    void performEarly();
    /// The number of the latest checkpoint, that is, call of performEarly().
    quint64 checkpoint() const { return m_checkpoint; }

protected:
    bool event(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    friend class ZelRunLoopModeScope;
    struct Request
    {
        quint32 order;
        ZelRunLoopTaskPtr task;
        QStringList modes;
    };
    struct Timer
    {
        int number;
        int timerId; // 0 once it has fired in a mode in which it may not run
        ZelRunLoopTaskPtr task;
        QStringList modes;
    };

    ZelRunLoop();
    QString setMode(const QString &mode);
    bool isRunnable(const QStringList &modes) const;
    void wakeUp();
    void performPending();
    void performOverdueTimers();
    void takeQueue();
    std::vector<ZelRunLoopTaskPtr> pendingTasks() const;

    std::vector<Request> m_queue;
    std::vector<Request> m_running; // taken from the queue; those before m_next have been performed
    size_t m_next = 0;
    std::vector<Request> m_waiting; // for another mode
    std::vector<Timer> m_timers;
    int m_lastTimer = 0;
    quint64 m_checkpoint = 0;
    bool m_wakeUpPosted = false;
    bool m_isInCommonMode = true;
    QString m_mode = ZelDefaultRunLoopMode;
};

/// Puts a run loop into another mode, such as the tracking of a drag, for the scope's life. Scopes nest.
class ZEL_EXPORT ZelRunLoopModeScope
{
public:
    explicit ZelRunLoopModeScope(const QString &mode, ZelRunLoop *runLoop = ZelRunLoop::current())
        : m_runLoop(runLoop)
        , m_formerMode(runLoop->setMode(mode))
    {
    }
    ~ZelRunLoopModeScope() { m_runLoop->setMode(m_formerMode); }
    Q_DISABLE_COPY_MOVE(ZelRunLoopModeScope)

private:
    ZelRunLoop *m_runLoop;
    QString m_formerMode;
};
