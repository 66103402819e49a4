// SPDX-License-Identifier: MIT
#include "Controls/private/ZelDragSource.h"

#include <QCoreApplication>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

ZelDragSource::ZelDragSource(QWidget *widget, Load load)
    : m_widget(widget)
    , m_load(std::move(load))
{
    qApp->installEventFilter(this);
}

void ZelDragSource::begin(QWidget *widget, Load load)
{
    auto *source = new ZelDragSource(widget, std::move(load));
    QMetaObject::invokeMethod(source, &ZelDragSource::run, Qt::QueuedConnection);
}

const QWidget *ZelDragSource::widgetOf(const QDropEvent *event)
{
    const auto *source = qobject_cast<const ZelDragSource *>(event->source());
    return source ? source->m_widget : nullptr;
}

bool ZelDragSource::eventFilter(QObject *watched, QEvent *event)
{
    m_isReleased = m_isReleased || event->type() == QEvent::MouseButtonRelease;
    return QObject::eventFilter(watched, event);
}

/// Qt deletes the drag when nobody needs its data any more. Another program reads them after the drop.
void ZelDragSource::run()
{
    qApp->removeEventFilter(this);
    if (!m_isReleased) {
        auto *drag = new QDrag(this);
        drag->setMimeData(m_load.data.release());
        drag->setPixmap(m_load.image);
        drag->setHotSpot(m_load.hotSpot);
        connect(drag, &QObject::destroyed, this, &QObject::deleteLater);
        drag->exec(m_load.action);
        return;
    }
    deleteLater();
}
