// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/Gesture.h"

#include <QList>

class Operations;
class Shape;

/// Moves the selected shapes with the mouse.
class DragGesture : public Gesture
{
public:
    /// Shapes move once the mouse has moved by the threshold, in points.
    DragGesture(Operations *operations, const QPointF &start, double threshold);

    void moveTo(const QPointF &point) override;
    void finish() override;
    void cancel() override;

private:
    Operations *m_operations;
    QList<Shape *> m_shapes;
    QPointF m_start;
    QPointF m_offset;
    double m_threshold;
    bool m_started = false;
};
