// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/ZelEventScope.h"
#include "Core/RunLoop/ZelPassiveEdits.h"

#include <QEvent>
#include <QPointer>

/// A class of Qt's whose events end at the library: what a handler throws goes to the exception reporter, since it
/// would end the application if it went on into the event loop. Subclasses override handleEvent instead of event, and
/// filterEvent instead of eventFilter; their other handlers need nothing.
///
/// Two kinds of events are not delivered by the event loop but are part of a call that an application makes: those by
/// which a widget gets a parent or a child, and the first step of showing a window. What they throw reaches the caller.
template<typename Base> class ZelGuarded : public Base
{
public:
    using Base::Base;

    bool event(QEvent *event) override
    {
        if (isPartOfCall(event))
            return handleEvent(event);
        // Nobody goes on with an object after its deferred deletion, so its parts may be deleted at once.
        const ZelEventScope delivery(event->type() != QEvent::DeferredDelete);
        const ZelPassiveEdits passive(event->type() == QEvent::FocusOut || event->type() == QEvent::Hide);
        return ZelExceptionReporter::runHandler(this, [this, event] { return handleEvent(event); });
    }
    /// A filter that threw has not taken the event. An event whose receiver died counts as taken: Qt must not deliver
    /// it.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const ZelEventScope delivery;
        const QPointer<QObject> receiver(watched);
        bool isTaken = false;
        ZelExceptionReporter::run(this, [&] { isTaken = filterEvent(watched, event); });
        return isTaken || !receiver;
    }

protected:
    virtual bool handleEvent(QEvent *event) { return Base::event(event); }
    virtual bool filterEvent(QObject *watched, QEvent *event) { return Base::eventFilter(watched, event); }

private:
    bool isPartOfCall(const QEvent *event) const
    {
        switch (event->type()) {
        case QEvent::ParentChange:
        case QEvent::ChildAdded:
            return true;
        case QEvent::Show:
            if constexpr (requires(const Base *base) { base->isWindow(); })
                return this->isWindow() && !event->spontaneous();
            return false;
        default:
            return false;
        }
    }
};

/// The same for scroll areas, whose viewport gets the events of the mouse and of painting: subclasses override
/// handleViewportEvent.
template<typename Base> class ZelGuardedScrollArea : public ZelGuarded<Base>
{
public:
    using ZelGuarded<Base>::ZelGuarded;

protected:
    bool viewportEvent(QEvent *event) override
    {
        const ZelEventScope delivery;
        return ZelExceptionReporter::runHandler(this, [this, event] { return handleViewportEvent(event); });
    }
    virtual bool handleViewportEvent(QEvent *event) { return Base::viewportEvent(event); }
};
