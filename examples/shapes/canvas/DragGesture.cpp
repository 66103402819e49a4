// SPDX-License-Identifier: MIT
#include "canvas/DragGesture.h"

#include "commands/Operations.h"

namespace {
constexpr double Threshold = 3; // points that a hand may tremble before shapes move
}

DragGesture::DragGesture(Operations *operations, const QPointF &start)
    : m_operations(operations)
    , m_shapes(operations->movableShapes())
    , m_start(start)
{
}

void DragGesture::moveTo(const QPointF &point)
{
    const QPointF offset = (point - m_start).toPoint();
    if (!m_started && offset.manhattanLength() < Threshold)
        return;
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
