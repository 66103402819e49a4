// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelEventMonitor.h"

#include "Core/Errors/ZelExceptionReporter.h"

#include <QApplication>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPointer>
#include <QWidget>

namespace {

quint32 maskOfButton(Qt::MouseButton button, quint32 left, quint32 right, quint32 other)
{
    if (button == Qt::LeftButton)
        return left;
    return button == Qt::RightButton ? right : other;
}

bool isModifierKey(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
        return true;
    default:
        return false;
    }
}

quint32 maskOfKey(const QEvent *event, quint32 mask)
{
    return isModifierKey(static_cast<const QKeyEvent *>(event)->key()) ? quint32(ZelEventMaskFlagsChanged) : mask;
}

} // namespace

quint32 ZelEventMaskOf(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return maskOfButton(static_cast<const QMouseEvent *>(event)->button(), ZelEventMaskLeftMouseDown,
                            ZelEventMaskRightMouseDown, ZelEventMaskOtherMouseDown);
    case QEvent::MouseButtonRelease:
        return maskOfButton(static_cast<const QMouseEvent *>(event)->button(), ZelEventMaskLeftMouseUp,
                            ZelEventMaskRightMouseUp, ZelEventMaskOtherMouseUp);
    case QEvent::MouseMove: {
        const auto others = static_cast<const QMouseEvent *>(event)->buttons() & ~(Qt::LeftButton | Qt::RightButton);
        return others ? quint32(ZelEventMaskOtherMouseDragged) : 0;
    }
    case QEvent::KeyPress:
        return maskOfKey(event, ZelEventMaskKeyDown);
    case QEvent::KeyRelease:
        return maskOfKey(event, ZelEventMaskKeyUp);
    case QEvent::NativeGesture: {
        const bool ends = static_cast<const QNativeGestureEvent *>(event)->gestureType() == Qt::EndNativeGesture;
        return ends ? quint32(ZelEventMaskEndGesture) : 0;
    }
    default:
        return 0;
    }
}

/// The application's one event filter for all monitors.
///
/// Input comes to a window first and is then sent on to a widget and its ancestors as copies that keep the time stamp,
/// so that a copy can be told from something new. Programs, and tests above all, also send input straight to a widget,
/// some without a time stamp: there an event is taken for a repetition if its widget is an ancestor of the last one.
class ZelEventMonitorFilter : public QObject
{
public:
    using Registrations = QList<std::shared_ptr<ZelEventMonitor::Registration>>;

    static void add(const std::shared_ptr<ZelEventMonitor::Registration> &registration)
    {
        if (!qApp)
            return;
        if (!s_filter) {
            s_filter = new ZelEventMonitorFilter;
            s_filter->setParent(qApp);
        }
        if (s_filter->m_registrations.isEmpty())
            qApp->installEventFilter(s_filter);
        s_filter->m_registrations.append(registration);
    }

    static void remove(const std::shared_ptr<ZelEventMonitor::Registration> &registration)
    {
        registration->removed = true;
        if (!s_filter)
            return;
        s_filter->m_registrations.removeOne(registration);
        if (s_filter->m_registrations.isEmpty())
            qApp->removeEventFilter(s_filter);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const quint32 mask = ZelEventMaskOf(event);
        if (mask && (watched->isWidgetType() || watched->isWindowType()) && isNew(watched, event))
            report(mask, event);
        return false;
    }

private:
    bool isNew(QObject *watched, const QEvent *event)
    {
        // The second press of a double click comes to the window as a double click, too, which is the one reported.
        // Widgets do not get the press either.
        if (event->type() == QEvent::MouseButtonPress &&
            static_cast<const QMouseEvent *>(event)->flags() & Qt::MouseEventCreatedDoubleClick)
            return false;
        const quint64 timestamp = static_cast<const QInputEvent *>(event)->timestamp();
        const bool same = event->type() == m_type && timestamp == m_timestamp;
        const bool repeated = same && watched->isWidgetType() && (timestamp || isAncestorOfLast(watched));
        m_type = event->type();
        m_timestamp = timestamp;
        m_last = watched;
        return !repeated;
    }

    bool isAncestorOfLast(const QObject *watched) const
    {
        if (!m_last || m_last->isWindowType())
            return m_last;
        const auto *last = qobject_cast<QWidget *>(m_last);
        return last && last != watched && static_cast<const QWidget *>(watched)->isAncestorOf(last);
    }

    void report(quint32 mask, QEvent *event)
    {
        const Registrations snapshot = m_registrations;
        for (const auto &registration : snapshot)
            if (!registration->removed && registration->mask & mask)
                ZelExceptionReporter::run(nullptr, [&] { registration->handler(event); });
    }

    static QPointer<ZelEventMonitorFilter> s_filter;
    Registrations m_registrations;
    QEvent::Type m_type = QEvent::None;
    quint64 m_timestamp = 0;
    QPointer<QObject> m_last;
};
QPointer<ZelEventMonitorFilter> ZelEventMonitorFilter::s_filter;

ZelEventMonitor::ZelEventMonitor(quint32 mask, const Handler &handler)
    : m_registration(std::make_shared<Registration>(Registration{mask, handler}))
{
    ZelEventMonitorFilter::add(m_registration);
}

ZelEventMonitor::~ZelEventMonitor()
{
    ZelEventMonitorFilter::remove(m_registration);
}
