// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelRunLoop.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/private/ZelReadingScope.h"

#include <QCoreApplication>
#include <QThreadStorage>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

thread_local ZelRunLoop *t_current = nullptr;

class BlockTask : public ZelRunLoopTask
{
public:
    explicit BlockTask(const std::function<void()> &block)
        : m_block(block)
    {
    }
    void perform() override { m_block(); }

private:
    std::function<void()> m_block;
};

QEvent::Type wakeUpEvent()
{
    static const auto type = QEvent::Type(QEvent::registerEventType());
    return type;
}

/// Performs a task. What it throws is reported and does not stop the others.
void performTask(ZelRunLoopTask &task)
{
    ZelExceptionReporter::run(nullptr, [&task] { task.perform(); });
}

/// Nearly all requests have the same order, so that there is rarely anything to sort.
template<typename Requests> void sortByOrder(Requests &requests)
{
    const auto isBefore = [](const auto &a, const auto &b) { return a.order < b.order; };
    if (!std::is_sorted(requests.begin(), requests.end(), isBefore))
        std::stable_sort(requests.begin(), requests.end(), isBefore);
}

} // namespace

ZelRunLoop *ZelRunLoop::current()
{
    static QThreadStorage<ZelRunLoop *> runLoops; // deletes each with its thread
    if (!t_current)
        runLoops.setLocalData(new ZelRunLoop);
    return t_current;
}

ZelRunLoop::ZelRunLoop()
{
    t_current = this;
}

ZelRunLoop::~ZelRunLoop()
{
    t_current = nullptr;
}

void ZelRunLoop::perform(ZelRunLoopTaskPtr task, quint32 order, const QStringList &modes)
{
    m_queue.push_back({order, std::move(task), modes});
    wakeUp();
}

void ZelRunLoop::perform(const std::function<void()> &block, quint32 order, const QStringList &modes)
{
    perform(ZelRunLoopTaskPtr(new BlockTask(block)), order, modes);
}

int ZelRunLoop::addTimer(ZelRunLoopTaskPtr task, double seconds, const QStringList &modes)
{
    const double milliseconds = std::ceil(std::clamp(seconds, 0.0, 1e6) * 1000);
    m_timers.push_back({++m_lastTimer, startTimer(int(milliseconds)), std::move(task), modes});
    return m_lastTimer;
}

void ZelRunLoop::invalidateTimer(int timer)
{
    const auto found =
        std::find_if(m_timers.begin(), m_timers.end(), [timer](const Timer &each) { return each.number == timer; });
    if (found == m_timers.end())
        return;
    if (found->timerId)
        killTimer(found->timerId);
    const Timer dropped = std::move(*found); // its task may go with it, and call back
    m_timers.erase(found);
}

void ZelRunLoop::performEarly()
{
    const quint64 checkpoint = ++m_checkpoint;
    // The requests stay queued: a task that has run leaves its request without effect.
    for (bool again = true; again;) {
        again = false;
        for (const ZelRunLoopTaskPtr &task : pendingTasks())
            again |= ZelExceptionReporter::runHandler(nullptr, [&] { return task->performEarly(checkpoint); });
    }
}

bool ZelRunLoop::event(QEvent *event)
{
    if (event->type() != wakeUpEvent())
        return QObject::event(event);
    m_wakeUpPosted = false;
    performPending();
    return true;
}

void ZelRunLoop::timerEvent(QTimerEvent *event)
{
    killTimer(event->timerId());
    const auto found = std::find_if(m_timers.begin(), m_timers.end(),
                                    [event](const Timer &each) { return each.timerId == event->timerId(); });
    if (found == m_timers.end())
        return;
    found->timerId = 0;
    if (!isRunnable(found->modes))
        return;
    const Timer fired = std::move(*found);
    m_timers.erase(found);
    performTask(*fired.task);
}

QString ZelRunLoop::setMode(const QString &mode)
{
    static const QStringList common{ZelDefaultRunLoopMode, ZelEventTrackingRunLoopMode, ZelModalPanelRunLoopMode};
    const QString former = std::exchange(m_mode, mode);
    m_isInCommonMode = common.contains(mode);
    m_queue.insert(m_queue.begin(), std::make_move_iterator(m_waiting.begin()),
                   std::make_move_iterator(m_waiting.end()));
    m_waiting.clear();
    const bool overdue =
        std::any_of(m_timers.begin(), m_timers.end(), [](const Timer &timer) { return !timer.timerId; });
    if (overdue || !m_queue.empty())
        wakeUp();
    return former;
}

bool ZelRunLoop::isRunnable(const QStringList &modes) const
{
    if (m_isInCommonMode && (modes.isEmpty() || modes.contains(ZelRunLoopCommonModes)))
        return true;
    return modes.contains(m_mode);
}

/// Posts one event for all requests of a turn: an event for each would cost more than the work. Its low priority lets
/// all events run first that are posted already, so that what these request is performed in one go.
void ZelRunLoop::wakeUp()
{
    if (m_wakeUpPosted)
        return;
    m_wakeUpPosted = true;
    QCoreApplication::postEvent(this, new QEvent(wakeUpEvent()), Qt::LowEventPriority);
}

void ZelRunLoop::performPending()
{
    takeQueue();
    performOverdueTimers();
    std::optional<ZelReadingScope> reading;
    while (m_next < m_running.size()) {
        Request request = std::move(m_running[m_next++]);
        if (!isRunnable(request.modes)) {
            m_waiting.push_back(std::move(request));
            continue;
        }
        if (!request.task->onlyReads())
            reading.reset();
        else if (!reading)
            reading.emplace();
        performTask(*request.task);
    }
    m_running.clear();
    m_next = 0;
}

void ZelRunLoop::performOverdueTimers()
{
    const auto isDue = [this](const Timer &timer) { return !timer.timerId && isRunnable(timer.modes); };
    for (;;) {
        const auto found = std::find_if(m_timers.begin(), m_timers.end(), isDue);
        if (found == m_timers.end())
            return;
        const Timer fired = std::move(*found);
        m_timers.erase(found);
        performTask(*fired.task);
    }
}

/// Adds the queue to what is left of the batch being performed. Something is left if work opened an event loop of its
/// own, in which this is called.
void ZelRunLoop::takeQueue()
{
    m_running.erase(m_running.begin(), m_running.begin() + qptrdiff(m_next));
    m_next = 0;
    if (m_running.empty()) {
        m_running.swap(m_queue);
    } else {
        m_running.insert(m_running.end(), std::make_move_iterator(m_queue.begin()),
                         std::make_move_iterator(m_queue.end()));
        m_queue.clear();
    }
    sortByOrder(m_running);
}

std::vector<ZelRunLoopTaskPtr> ZelRunLoop::pendingTasks() const
{
    struct Pending
    {
        quint32 order;
        const ZelRunLoopTaskPtr *task;
    };
    std::vector<Pending> pending;
    const auto add = [&pending](auto first, auto last) {
        for (; first != last; ++first)
            pending.push_back({first->order, &first->task});
    };
    add(m_running.begin() + qptrdiff(m_next), m_running.end());
    add(m_waiting.begin(), m_waiting.end());
    add(m_queue.begin(), m_queue.end());
    sortByOrder(pending);

    std::vector<ZelRunLoopTaskPtr> tasks;
    tasks.reserve(pending.size());
    for (const Pending &each : pending)
        tasks.push_back(*each.task);
    return tasks;
}
