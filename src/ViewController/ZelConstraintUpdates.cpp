// SPDX-License-Identifier: MIT
#include "ViewController/ZelConstraintUpdates.h"

#include "ViewController/ZelView.h"

#include <QCoreApplication>
#include <QEvent>

ZelConstraintUpdates &ZelConstraintUpdates::instance()
{
    static auto *updates = new ZelConstraintUpdates; // views may outlive every static destructor
    return *updates;
}

void ZelConstraintUpdates::schedule(ZelView *view)
{
    if (view->m_updateIndex >= 0)
        return;
    view->m_updateIndex = qint32(m_scheduled.size());
    m_scheduled.push_back(view);
    if (!m_posted && QCoreApplication::instance()) {
        m_posted = true;
        // Ahead of the layout requests that are posted already, or they would lay out the former constraints.
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
    }
}

void ZelConstraintUpdates::cancel(ZelView *view)
{
    const auto index = size_t(view->m_updateIndex);
    for (std::vector<ZelView *> *queue : {&m_scheduled, &m_running})
        if (view->m_updateIndex >= 0 && index < queue->size() && (*queue)[index] == view)
            (*queue)[index] = nullptr;
    view->m_updateIndex = -1;
}

/// One pass over what is scheduled; what an exception leaves undone is scheduled again.
class ZelConstraintUpdates::Run
{
public:
    explicit Run(ZelConstraintUpdates &updates)
        : m_updates(updates)
    {
        m_updates.m_flushing = true;
        m_updates.m_running.swap(m_updates.m_scheduled);
    }
    ~Run()
    {
        m_updates.m_flushing = false;
        const std::vector<ZelView *> rest = std::exchange(m_updates.m_running, {});
        for (ZelView *view : rest) {
            if (view) {
                view->m_updateIndex = -1;
                m_updates.schedule(view);
            }
        }
    }
    Q_DISABLE_COPY_MOVE(Run)

    void updateAll()
    {
        for (size_t i = 0; i < m_updates.m_running.size(); ++i)
            if (ZelView *view = m_updates.m_running[i])
                view->updateConstraintsIfNeeded(); // takes itself out of the queue
    }

private:
    ZelConstraintUpdates &m_updates;
};

void ZelConstraintUpdates::flush()
{
    constexpr int maximalPasses = 8;
    for (int pass = 0; !m_flushing && !m_scheduled.empty() && pass < maximalPasses; ++pass)
        Run(*this).updateAll();
}

bool ZelConstraintUpdates::handleEvent(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    m_posted = false;
    flush();
    return true;
}
