// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointF>
#include <QUndoCommand>

class Shape;

/// Moves shapes to the common edges that a Qt::Alignment names.
class AlignCommand : public QUndoCommand
{
public:
    AlignCommand(const QList<Shape *> &shapes, Qt::Alignment edges, const QString &text);

    void undo() override;
    void redo() override;

private:
    QList<Shape *> m_shapes;
    QList<QPointF> m_before;
    QList<QPointF> m_after;
};
