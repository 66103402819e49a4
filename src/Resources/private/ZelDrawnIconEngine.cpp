// SPDX-License-Identifier: MIT
#include "Resources/private/ZelDrawnIconEngine.h"

#include <QPainter>

void ZelDrawnIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State)
{
    painter->save();
    if (mode == QIcon::Disabled)
        painter->setOpacity(painter->opacity() * 0.4);
    m_draw(painter, rect);
    painter->restore();
}

QPixmap ZelDrawnIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    QPixmap pixmap(size);
    if (pixmap.isNull())
        return pixmap;
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
}
