// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBarSeparator.h"

#include "Core/Values/private/ZelAssign.h"

#include <cmath>

ZelActionBarSeparator::ZelActionBarSeparator(QWidget *parent)
    : ZelView(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

ZelActionBarSeparator::ZelActionBarSeparator(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void ZelActionBarSeparator::setStyle(quint32 style)
{
    if (!ZelAssign(m_style, style))
        return;
    update();
    Q_EMIT styleChanged();
}

void ZelActionBarSeparator::drawRect(QPainter &painter, const QRect &dirtyRect)
{
    ZelView::drawRect(painter, dirtyRect);
    QColor color = palette().color(QPalette::WindowText);
    color.setAlphaF(0.3F);
    const QRectF area = bounds();
    const double inset = m_style == 0 ? 3 : 0;
    painter.fillRect(QRectF(std::floor(area.center().x()), area.top() + inset, 1, area.height() - 2 * inset), color);
}
