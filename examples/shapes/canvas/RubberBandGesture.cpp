// SPDX-License-Identifier: MIT
#include "canvas/RubberBandGesture.h"

#include "model/Selection.h"

#include <QPainter>
#include <QPalette>

RubberBandGesture::RubberBandGesture(Selection *selection, const Catch &shapesIn, const QPointF &start)
    : m_selection(selection)
    , m_shapesIn(shapesIn)
    , m_before(selection->shapes())
    , m_start(start)
{
}

void RubberBandGesture::moveTo(const QPointF &point)
{
    m_rect = QRectF(m_start, point).normalized();
    m_selection->set(m_before + m_shapesIn(m_rect));
}

void RubberBandGesture::cancel()
{
    m_selection->set(m_before);
}

void RubberBandGesture::paint(QPainter &painter) const
{
    QColor color = QPalette().color(QPalette::Highlight);
    painter.setPen(QPen(color, 0));
    color.setAlpha(40);
    painter.setBrush(color);
    painter.drawRect(m_rect);
}
