// SPDX-License-Identifier: MIT
#include "Layout/private/ZelLayoutTurn.h"

#include "Core/Errors/private/ZelFirstException.h"
#include "Core/RunLoop/ZelMemberScope.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

ZelLayoutTurn &ZelLayoutTurn::instance()
{
    static auto *instance = new ZelLayoutTurn; // views and layouts may outlive every static
    return *instance;
}

void ZelLayoutTurn::add(Phase phase, QObject *object, Work work)
{
    Queue &queue = m_queues[phase];
    queue.entries.push_back({object, work});
    if (queue.isPosted || !QCoreApplication::instance())
        return;
    queue.isPosted = true;
    const int priority = phase == Constraints ? Qt::HighEventPriority : Qt::NormalEventPriority;
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(int(QEvent::User) + phase)), priority);
}

void ZelLayoutTurn::perform(Phase phase)
{
    constexpr int maximalPasses = 8;
    Queue &queue = m_queues[phase];
    if (queue.isPerformed)
        return;
    const ZelMemberScope performing(this, queue.isPerformed, true);
    ZelFirstException failure;
    for (int pass = 0; !queue.entries.empty() && pass < maximalPasses; ++pass) {
        for (const Entry &entry : std::exchange(queue.entries, {})) {
            if (entry.object)
                failure.run([&] { entry.work(entry.object); });
        }
    }
    failure.rethrow();
}

bool ZelLayoutTurn::handleEvent(QEvent *event)
{
    const int phase = event->type() - QEvent::User;
    if (phase < 0 || size_t(phase) >= m_queues.size())
        return QObject::event(event);
    m_queues[size_t(phase)].isPosted = false;
    perform(Phase(phase));
    return true;
}

void ZelLayoutTurn::settle(const QWidget *widget)
{
    // A widget that is laid out announces its own change to the one around it, which is next here. The requests that
    // are posted meanwhile find nothing to do.
    QPointer<QWidget> around = widget->parentWidget();
    while (around) {
        QEvent request(QEvent::LayoutRequest);
        QCoreApplication::sendEvent(around, &request);
        if (around)
            around = around->isWindow() ? nullptr : around->parentWidget();
    }
}
