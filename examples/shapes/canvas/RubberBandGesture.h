// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/Gesture.h"

#include <QList>
#include <QRectF>
#include <functional>

class Selection;
class Shape;

/// Selects what lies in a rectangle that the mouse pulls up, besides what is selected already.
class RubberBandGesture : public Gesture
{
public:
    /// Answers the shapes that a rectangle catches.
    using Catch = std::function<QList<Shape *>(const QRectF &rect)>;

    RubberBandGesture(Selection *selection, const Catch &shapesIn, const QPointF &start);

    void moveTo(const QPointF &point) override;
    void cancel() override;
    void paint(QPainter &painter) const override;
    QRectF paintedRect() const override { return m_rect; }

private:
    Selection *m_selection;
    Catch m_shapesIn;
    QList<Shape *> m_before;
    QPointF m_start;
    QRectF m_rect;
};
