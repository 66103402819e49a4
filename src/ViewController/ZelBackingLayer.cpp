// SPDX-License-Identifier: MIT
#include "ViewController/ZelBackingLayer.h"

#include <QPainter>
#include <QWidget>

void ZelBackingLayer::setBackgroundColor(const ZelColor &color)
{
    m_backgroundColor = color;
    m_view->update();
}

void ZelBackingLayer::setBorderColor(const ZelColor &color)
{
    m_borderColor = color;
    m_view->update();
}

void ZelBackingLayer::setBorderWidth(double width)
{
    m_borderWidth = width;
    m_view->update();
}

void ZelBackingLayer::draw(QPainter &painter, const QRectF &bounds) const
{
    if (const QColor background = m_backgroundColor.toQColor(); background.isValid())
        painter.fillRect(bounds, background);
    if (const QColor border = m_borderColor.toQColor(); border.isValid() && m_borderWidth > 0)
        drawFrame(painter, bounds, m_borderWidth, border);
}

void ZelBackingLayer::drawFrame(QPainter &painter, const QRectF &rect, double width, const QColor &color)
{
    const double inner = qMax(0.0, rect.height() - 2 * width);
    // The border consists of four strips that do not overlap, so that a translucent colour is not darker in the
    // corners.
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), width), color);
    painter.fillRect(QRectF(rect.left(), rect.bottom() - width, rect.width(), width), color);
    painter.fillRect(QRectF(rect.left(), rect.top() + width, width, inner), color);
    painter.fillRect(QRectF(rect.right() - width, rect.top() + width, width, inner), color);
}
