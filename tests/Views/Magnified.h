// SPDX-License-Identifier: MIT
#pragma once

#include "Views/ZelMagnificationView.h"

#include <QDropEvent>
#include <QHash>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPointingDevice>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <memory>

/// Draws lines a point wide, two points apart, and remembers where events came.
class Content : public ZelView
{
public:
    using ZelView::ZelView;
    QHash<int, QPointF> positions;

    void drawRect(QPainter &painter, const QRect &dirtyRect) override
    {
        painter.fillRect(dirtyRect, Qt::white);
        for (int x = 0; x < 200; x += 2)
            painter.fillRect(QRectF(x, 0, 1, bounds().height()), Qt::black);
    }

protected:
    bool positionedEvent(QEvent *event) override
    {
        positions[event->type()] = positionOf(event);
        return ZelView::positionedEvent(event);
    }
    void mousePressEvent(QMouseEvent *) override {}
    void contextMenuEvent(QContextMenuEvent *) override {}
    void tabletEvent(QTabletEvent *event) override { event->accept(); }
    void dragEnterEvent(QDragEnterEvent *event) override { event->accept(); }
    void dropEvent(QDropEvent *event) override
    {
        event->setDropAction(Qt::MoveAction);
        event->accept();
    }

private:
    static QPointF positionOf(const QEvent *event)
    {
        if (event->isSinglePointEvent())
            return static_cast<const QSinglePointEvent *>(event)->position();
        switch (event->type()) {
        case QEvent::ContextMenu:
            return static_cast<const QContextMenuEvent *>(event)->pos();
        case QEvent::ToolTip:
        case QEvent::WhatsThis:
            return static_cast<const QHelpEvent *>(event)->pos();
        default:
            return static_cast<const QDropEvent *>(event)->position();
        }
    }
};

/// A magnified content in a shown scroll area without a frame.
struct Scene
{
    explicit Scene(const QSizeF &contentSize, const QSize &size = QSize(300, 200))
        : area(new QScrollArea)
        , view(new ZelMagnificationView)
        , content(new Content)
    {
        view->addSubview(content);
        view->setContentSize(contentSize);
        area->setFrameShape(QFrame::NoFrame);
        area->setWidget(view);
        area->resize(size);
        area->show();
        if (!QTest::qWaitForWindowExposed(area.get()))
            qFatal("no window");
    }
    /// The content's point at a place in the window.
    QPointF contentPoint(const QPointF &place) const
    {
        return content->boundsTransform().inverted().map(content->mapFrom(area.get(), place));
    }
    QPointF place(const QPointF &contentPoint) const
    {
        return content->mapTo(area.get(), content->boundsTransform().map(contentPoint));
    }
    void wheel(const QPointF &place, int delta, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        QWheelEvent event(place, area->mapToGlobal(place), QPoint(), QPoint(0, delta), {}, modifiers, Qt::NoScrollPhase,
                          false);
        QSpontaneKeyEvent::setSpontaneous(&event); // only the platform's own are passed on to the parents
        qApp->notify(area->windowHandle(), &event);
        QCoreApplication::processEvents();
    }
    void nativePinch(const QPointF &place, double value)
    {
        QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, place, place,
                                  area->mapToGlobal(place), value, {});
        QCoreApplication::sendEvent(area->windowHandle(), &event);
    }
    bool hasScrollBars() const
    {
        return area->horizontalScrollBar()->isVisible() || area->verticalScrollBar()->isVisible();
    }

    std::unique_ptr<QScrollArea> area;
    QPointer<ZelMagnificationView> view;
    QPointer<Content> content;
};

inline double distance(const QPointF &a, const QPointF &b)
{
    return QLineF(a, b).length();
}
