// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QEvent>
#include <functional>
#include <memory>

/// Kinds of user input that a monitor asks for, combined with a bitwise or.
enum ZelEventMask : quint32 {
    ZelEventMaskLeftMouseDown = 1u << 1,
    ZelEventMaskLeftMouseUp = 1u << 2,
    ZelEventMaskRightMouseDown = 1u << 3,
    ZelEventMaskRightMouseUp = 1u << 4,
    ZelEventMaskKeyDown = 1u << 10,
    ZelEventMaskKeyUp = 1u << 11,
    ZelEventMaskFlagsChanged = 1u << 12, ///< a modifier key went down or up; it counts as no other key
    ZelEventMaskEndGesture = 1u << 20,   ///< the end of a gesture on a touch pad
    ZelEventMaskOtherMouseDown = 1u << 25,
    ZelEventMaskOtherMouseUp = 1u << 26,
    ZelEventMaskOtherMouseDragged = 1u << 27, ///< moved with a button other than left and right held
};

/// Answers the bit of an event; 0 for an event of none of these kinds. A double click is a mouse down.
ZEL_EXPORT quint32 ZelEventMaskOf(const QEvent *event);

/// Sees user input anywhere in the application, before it is handled, for as long as the monitor lives.
///
/// Each event is reported once, however many widgets it is offered to in turn; it is never taken away or changed.
/// Monitors may come and go while an event is reported. Main thread only; needs an application object.
class ZEL_EXPORT ZelEventMonitor
{
public:
    using Handler = std::function<void(QEvent *)>;
    ZelEventMonitor(quint32 mask, const Handler &handler);
    ~ZelEventMonitor();
    Q_DISABLE_COPY_MOVE(ZelEventMonitor)

private:
    friend class ZelEventMonitorFilter;
    struct Registration
    {
        quint32 mask;
        Handler handler;
        bool removed = false;
    };
    std::shared_ptr<Registration> m_registration;
};
