// SPDX-License-Identifier: MIT
#include "canvas/DragGesture.h"

#include "commands/Operations.h"

DragGesture::DragGesture(Operations *operations, const QPointF &start, double threshold)
    : m_operations(operations)
    , m_shapes(operations->movableShapes())
    , m_start(start)
    , m_threshold(threshold)
{
}

void DragGesture::moveTo(const QPointF &point)
{
    if (!m_started && (point - m_start).manhattanLength() < m_threshold)
        return;
    const QPointF offset = (point - m_start).toPoint();
    m_started = true;
    for (Shape *shape : std::as_const(m_shapes))
        shape->setPosition(shape->position() + offset - m_offset);
    m_offset = offset;
}

void DragGesture::finish()
{
    if (!m_offset.isNull() && !m_shapes.isEmpty())
        m_operations->recordMove(m_shapes, m_offset);
}

void DragGesture::cancel()
{
    if (m_started)
        moveTo(m_start);
}
