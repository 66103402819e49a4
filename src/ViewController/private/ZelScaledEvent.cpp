// SPDX-License-Identifier: MIT
#include "ViewController/private/ZelScaledEvent.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QTabletEvent>
#include <QWheelEvent>

// The position of an event cannot be changed, so there is one function for each kind that makes a new event.

namespace {

class Delivery
{
public:
    Delivery(const QTransform &toView, const ZelScaledEvent::Receiver &receiver)
        : m_toView(toView)
        , m_receiver(receiver)
    {
    }

    bool mouse(QMouseEvent *e) const
    {
        QMouseEvent scaled(e->type(), m_toView.map(e->position()), e->scenePosition(), e->globalPosition(), e->button(),
                           e->buttons(), e->modifiers(), e->source(), e->pointingDevice());
        return sendInput(scaled, e);
    }
    bool enter(QEnterEvent *e) const
    {
        QEnterEvent scaled(m_toView.map(e->position()), e->scenePosition(), e->globalPosition(), e->pointingDevice());
        return sendInput(scaled, e);
    }
    bool hover(QHoverEvent *e) const
    {
        QHoverEvent scaled(e->type(), m_toView.map(e->position()), e->globalPosition(), m_toView.map(e->oldPosF()),
                           e->modifiers(), e->pointingDevice());
        return sendInput(scaled, e);
    }
    bool wheel(QWheelEvent *e) const
    {
        QWheelEvent scaled(m_toView.map(e->position()), e->globalPosition(), e->pixelDelta(), e->angleDelta(),
                           e->buttons(), e->modifiers(), e->phase(), e->inverted(), e->source(), e->pointingDevice());
        return sendInput(scaled, e);
    }
    bool tablet(QTabletEvent *e) const
    {
        QTabletEvent scaled(e->type(), e->pointingDevice(), m_toView.map(e->position()), e->globalPosition(),
                            float(e->pressure()), float(e->xTilt()), float(e->yTilt()), float(e->tangentialPressure()),
                            e->rotation(), float(e->z()), e->modifiers(), e->button(), e->buttons());
        return sendInput(scaled, e);
    }
    bool contextMenu(QContextMenuEvent *e) const
    {
        QContextMenuEvent scaled(e->reason(), m_toView.map(QPointF(e->pos())).toPoint(), e->globalPos(),
                                 e->modifiers());
        return sendInput(scaled, e);
    }
    bool help(QHelpEvent *e) const
    {
        QHelpEvent scaled(e->type(), m_toView.map(QPointF(e->pos())).toPoint(), e->globalPos());
        return send(scaled, e);
    }
    bool drop(QDropEvent *e) const
    {
        const QPointF position = m_toView.map(e->position());
        if (e->type() == QEvent::DragEnter) {
            QDragEnterEvent scaled(position.toPoint(), e->possibleActions(), e->mimeData(), e->buttons(),
                                   e->modifiers());
            return sendDrop(scaled, e);
        }
        if (e->type() == QEvent::DragMove) {
            QDragMoveEvent scaled(position.toPoint(), e->possibleActions(), e->mimeData(), e->buttons(),
                                  e->modifiers());
            return sendDrop(scaled, e);
        }
        QDropEvent scaled(position, e->possibleActions(), e->mimeData(), e->buttons(), e->modifiers());
        return sendDrop(scaled, e);
    }

private:
    bool send(QEvent &scaled, QEvent *event) const
    {
        scaled.setAccepted(event->isAccepted());
        const bool handled = m_receiver(&scaled);
        event->setAccepted(scaled.isAccepted());
        return handled;
    }
    bool sendInput(QInputEvent &scaled, QInputEvent *event) const
    {
        scaled.setTimestamp(event->timestamp());
        return send(scaled, event);
    }
    bool sendDrop(QDropEvent &scaled, QDropEvent *event) const
    {
        scaled.setDropAction(event->dropAction());
        const bool handled = send(scaled, event);
        event->setDropAction(scaled.dropAction());
        return handled;
    }

    const QTransform &m_toView;
    const ZelScaledEvent::Receiver &m_receiver;
};

} // namespace

bool ZelScaledEvent::deliver(QEvent *event, const QTransform &toView, const Receiver &receiver)
{
    const Delivery delivery(toView, receiver);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return delivery.mouse(static_cast<QMouseEvent *>(event));
    case QEvent::Enter:
        return delivery.enter(static_cast<QEnterEvent *>(event));
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::HoverLeave:
        return delivery.hover(static_cast<QHoverEvent *>(event));
    case QEvent::Wheel:
        return delivery.wheel(static_cast<QWheelEvent *>(event));
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
        return delivery.tablet(static_cast<QTabletEvent *>(event));
    case QEvent::ContextMenu:
        return delivery.contextMenu(static_cast<QContextMenuEvent *>(event));
    case QEvent::ToolTip:
    case QEvent::WhatsThis:
        return delivery.help(static_cast<QHelpEvent *>(event));
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return delivery.drop(static_cast<QDropEvent *>(event));
    default:
        return receiver(event);
    }
}
