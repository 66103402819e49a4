// SPDX-License-Identifier: MIT
#include "Layout/private/ZelLayoutTurn.h"

#include "Core/Errors/private/ZelFirstException.h"
#include "Core/RunLoop/ZelMemberScope.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHash>
#include <QWidget>

#include <algorithm>

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

void ZelLayoutTurn::settle(const QList<QWidget *> &widgets)
{
    QHash<QWidget *, int> levels; // counted from the window
    for (QWidget *widget : widgets) {
        QList<QWidget *> chain;
        QWidget *around = widget;
        while (around && !levels.contains(around)) {
            chain.append(around);
            around = around->isWindow() ? nullptr : around->parentWidget();
        }
        int level = around ? levels.value(around) : 0;
        while (!chain.isEmpty())
            levels.insert(chain.takeLast(), ++level);
    }
    std::vector<std::pair<int, QPointer<QWidget>>> ordered;
    for (auto [widget, level] : levels.asKeyValueRange())
        ordered.emplace_back(level, widget);
    std::sort(ordered.begin(), ordered.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
    for (const auto &[level, widget] : ordered) {
        QEvent request(QEvent::LayoutRequest);
        if (widget)
            QCoreApplication::sendEvent(widget, &request);
    }
}
