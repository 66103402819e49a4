// SPDX-License-Identifier: MIT
#include "commands/AlignCommand.h"

#include "model/Shape.h"

AlignCommand::AlignCommand(const QList<Shape *> &shapes, Qt::Alignment edges, const QString &text)
    : QUndoCommand(text)
    , m_shapes(shapes)
{
    QRectF all;
    for (const Shape *shape : shapes)
        all |= shape->frame();
    for (const Shape *shape : shapes) {
        QRectF rect = shape->frame();
        if (edges & Qt::AlignLeft)
            rect.moveLeft(all.left());
        if (edges & Qt::AlignRight)
            rect.moveRight(all.right());
        if (edges & Qt::AlignHCenter)
            rect.moveCenter({all.center().x(), rect.center().y()});
        if (edges & Qt::AlignTop)
            rect.moveTop(all.top());
        if (edges & Qt::AlignBottom)
            rect.moveBottom(all.bottom());
        if (edges & Qt::AlignVCenter)
            rect.moveCenter({rect.center().x(), all.center().y()});
        m_before.append(shape->position());
        m_after.append(rect.topLeft());
    }
}

void AlignCommand::undo()
{
    for (int i = 0; i < m_shapes.size(); ++i)
        m_shapes[i]->setPosition(m_before[i]);
}

void AlignCommand::redo()
{
    for (int i = 0; i < m_shapes.size(); ++i)
        m_shapes[i]->setPosition(m_after[i]);
}
