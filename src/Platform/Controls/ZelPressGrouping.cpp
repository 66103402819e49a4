// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelPressGrouping.h"

#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/RunLoop/ZelNotificationCenter.h"
#include "Platform/Runtime/ZelExceptionReporter.h"
#include "Platform/Runtime/ZelPassiveEdits.h"

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

/// Where the user did not end it, something else is happening: perhaps a step of undo, which nothing can be pushed
/// into.
ZelPressGrouping::~ZelPressGrouping()
{
    ZelNotificationCenter::defaultCenter()->removeObserver(this);
    const ZelPassiveEdits passive(!m_isEnded);
    m_grouping.reset();
}

/// What the press has changed so far is part of the state that the step leaves.
void ZelPressGrouping::observeNotification(const ZelNotification &)
{
    m_isEnded = true;
    const auto lost = m_lost; // it destroys this
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
    const auto lost = m_lost; // it destroys this
    ZelExceptionReporter::run(watched, lost);
    return false;
}
