// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <memory>

class QDropEvent;
class QMimeData;
class QWidget;

/// A drag out of a widget that may die while it lasts.
///
/// Qt's drags run an event loop of their own. It is entered from the main loop, when no handler of the widget is
/// running any more, and not by the event that begins the drag.
class ZelDragSource : public QObject
{
    Q_OBJECT
public:
    /// What is dragged; `hotSpot` is the place of the pointer in the image.
    struct Load
    {
        std::unique_ptr<QMimeData> data;
        QPixmap image;
        QPoint hotSpot;
        Qt::DropAction action = Qt::CopyAction;
    };

    /// Begins the drag as soon as the present event was handled, unless the mouse is released before. The widget is the
    /// one that the pointer has pressed.
    static void begin(QWidget *widget, Load load);
    /// The widget in which the drag of the event began; null if it is gone, or if the drag is another one.
    static const QWidget *widgetOf(const QDropEvent *event);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ZelDragSource(QWidget *widget, Load load);
    void run();

    QPointer<const QWidget> m_widget;
    Load m_load;
    bool m_isReleased = false;
};
