// SPDX-License-Identifier: MIT
#include "Controls/private/ZelPressGrouping.h"

#include "Controls/private/ZelControlSupport.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/RunLoop/ZelPassiveEdits.h"

#include <QCoreApplication>
#include <QMouseEvent>

ZelPressGrouping::ZelPressGrouping(QWidget *control, const std::function<void()> &lost)
    : m_control(control)
    , m_lost(lost)
    , m_grouping(std::in_place, control)
{
    QCoreApplication::instance()->installEventFilter(this);
    if (const ZelUndoManager *manager = ZelUndoManager::forWidget(control); manager && manager->stack())
        ZelNotificationCenter::defaultCenter()->addObserver(this, ZelUndoStepWillBeginNotification, manager->stack());
}

/// If the user did not end the press, this may happen in the middle of something else, such as a step of undo, during
/// which nothing can be pushed on the stack. So the edits count as passive.
ZelPressGrouping::~ZelPressGrouping()
{
    ZelNotificationCenter::defaultCenter()->removeObserver(this);
    const ZelPassiveEdits passive(!m_isEnded);
    m_grouping.reset();
}

/// The press ends before a step of undo or redo, so that what it has changed so far is a step of its own.
void ZelPressGrouping::observeNotification(const ZelNotification &)
{
    m_isEnded = true;
    const auto lost = m_lost; // a copy: the call destroys this object
    ZelExceptionReporter::run(m_control, lost);
}

bool ZelPressGrouping::takesMouse(QObject *watched, const QEvent *event) const
{
    const auto *widget = qobject_cast<QWidget *>(watched);
    if (!widget)
        return false;
    if (widget == m_control)
        return ZelControlSupport::endsMouseGrab(event, widget);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return true;
    case QEvent::MouseButtonRelease:
        return !(static_cast<const QMouseEvent *>(event)->buttons() & Qt::LeftButton);
    case QEvent::Show:
        return widget->windowType() == Qt::Popup;
    default:
        return false;
    }
}

bool ZelPressGrouping::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_control && event->type() == QEvent::MouseButtonRelease)
        m_isEnded = true;
    if (!takesMouse(watched, event))
        return false;
    const auto lost = m_lost; // a copy: the call destroys this object
    ZelExceptionReporter::run(watched, lost);
    return false;
}
