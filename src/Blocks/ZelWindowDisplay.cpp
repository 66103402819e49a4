// SPDX-License-Identifier: MIT
#include "Blocks/ZelWindowDisplay.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/private/ZelFirstException.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/RunLoop/private/ZelReadingScope.h"
#include "Observation/ZelDelayedInvocation.h"

#include <QCoreApplication>
#include <QWidget>
#include <QWindow>

ZelWindowDisplay *ZelWindowDisplay::of(const QWidget *widget)
{
    return widget ? widget->window()->findChild<ZelWindowDisplay *>({}, Qt::FindDirectChildrenOnly) : nullptr;
}

ZelWindowDisplay::ZelWindowDisplay(QWidget *window)
    : ZelGuarded(window)
    , m_window(window)
{
    window->installEventFilter(this);
    if (QWindow *handle = window->windowHandle())
        handle->installEventFilter(this);
}

void ZelWindowDisplay::performBeforeDisplayUsingBlock(const std::function<void()> &block)
{
    if (ZelRequire(bool(block), "block"))
        m_delayedBlocks.push_back(block);
}

void ZelWindowDisplay::performDelayedBlocks()
{
    const QPointer<ZelWindowDisplay> alive(this);
    ZelFirstException errors;
    // Each block is taken out before it runs, since it may queue others, throw, or delete this window.
    while (alive && !m_delayedBlocks.empty()) {
        const std::function<void()> block = std::move(m_delayedBlocks.front());
        m_delayedBlocks.pop_front();
        errors.run(block);
    }
    errors.rethrow();
}

void ZelWindowDisplay::displayIfNeeded()
{
    if (!checkpoint())
        return;
    // The window paints when it gets this event, if there is anything to paint.
    QEvent update(QEvent::UpdateRequest);
    const ZelMemberScope displaying(this, m_inCheckpoint, true);
    QCoreApplication::sendEvent(m_window, &update);
}

/// Makes the checkpoint. False if the window did not survive it.
bool ZelWindowDisplay::checkpoint()
{
    const QPointer<ZelWindowDisplay> alive(this);
    if (m_inCheckpoint)
        return true;
    const ZelMemberScope displaying(this, m_inCheckpoint, true);
    const ZelReadingScope reading;
    ZelNotificationCenter *center = ZelNotificationCenter::defaultCenter();
    ZelFirstException errors;
    errors.run([&] { center->post(ZelWindowDisplayCheckpointNotification, m_window); });
    if (alive)
        errors.run([&] { center->post(ZelDelayedInvocationCheckpointNotification, m_window); });
    if (alive)
        errors.run([this] { performDelayedBlocks(); });
    errors.rethrow();
    return alive;
}

bool ZelWindowDisplay::filterEvent(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Show: // the native window may be a new one
        if (watched == m_window && m_window->windowHandle())
            m_window->windowHandle()->installEventFilter(this);
        return false;
    case QEvent::Expose: // the first frame is painted without an update request
        return watched != m_window && !checkpoint();
    case QEvent::UpdateRequest:
        return watched == m_window && !checkpoint(); // a window that is gone must not get the event
    default:
        return false;
    }
}
