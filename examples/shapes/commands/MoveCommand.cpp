// SPDX-License-Identifier: MIT
#include "commands/MoveCommand.h"

#include "model/Shape.h"

#include <utility>

MoveCommand::MoveCommand(const QList<Shape *> &shapes, const QPointF &offset, Way way, const QString &text)
    : QUndoCommand(text)
    , m_shapes(shapes)
    , m_offset(offset)
    , m_way(way)
    , m_alreadyDone(way == Dragged)
{
}

void MoveCommand::redo()
{
    if (!std::exchange(m_alreadyDone, false))
        moveBy(m_offset);
}

bool MoveCommand::mergeWith(const QUndoCommand *other)
{
    const auto *move = static_cast<const MoveCommand *>(other);
    if (move->m_shapes != m_shapes)
        return false;
    m_offset += move->m_offset;
    return true;
}

void MoveCommand::moveBy(const QPointF &offset) const
{
    for (Shape *shape : m_shapes)
        shape->setPosition(shape->position() + offset);
}
