// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointF>
#include <QUndoCommand>

class Shape;

/// Moves shapes.
class MoveCommand : public QUndoCommand
{
public:
    enum Way {
        Nudged, ///< moves when it is pushed; nudges of the same shapes one after the other become one
        Dragged ///< the shapes have already been moved
    };
    MoveCommand(const QList<Shape *> &shapes, const QPointF &offset, Way way, const QString &text);

    void undo() override { moveBy(-m_offset); }
    void redo() override;
    int id() const override { return m_way == Nudged ? 1 : -1; }
    bool mergeWith(const QUndoCommand *other) override;

private:
    void moveBy(const QPointF &offset) const;

    QList<Shape *> m_shapes;
    QPointF m_offset;
    Way m_way;
    bool m_alreadyDone;
};
