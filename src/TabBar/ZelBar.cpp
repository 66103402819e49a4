// SPDX-License-Identifier: MIT
#include "TabBar/ZelBar.h"

#include "Core/Values/private/ZelAssign.h"

#include <QEvent>

ZelBar::ZelBar(QWidget *parent)
    : ZelView(parent)
{
    setFlipped(true);
}

ZelBar::ZelBar(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
{
    setFlipped(true);
}

void ZelBar::setStyle(quint32 style)
{
    if (!ZelAssign(m_style, style))
        return;
    update();
    Q_EMIT styleChanged();
}

bool ZelBar::handleEvent(QEvent *event)
{
    // Qt sends both events to all widgets of the window, also when the whole application becomes active.
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        update();
    return ZelView::handleEvent(event);
}

void ZelBar::drawRect(QPainter &painter, const QRect &dirtyRect)
{
    ZelView::drawRect(painter, dirtyRect);
    if (m_style != 0)
        return;
    const QColor text = palette().color(QPalette::WindowText);
    const auto shade = [&](double alpha) {
        QColor color = text;
        color.setAlphaF(float(alpha));
        return color;
    };
    const QRectF area = bounds();
    painter.fillRect(area, shade(isActiveWindow() ? 0.07 : 0.03));
    painter.fillRect(QRectF(area.left(), area.bottom() - 1, area.width(), 1), shade(isActiveWindow() ? 0.3 : 0.18));
}
