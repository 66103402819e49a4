// SPDX-License-Identifier: MIT
#include "commands/PresenceCommand.h"

PresenceCommand::PresenceCommand(Document *document, bool adds, const QString &text)
    : QUndoCommand(text)
    , m_document(document)
    , m_adds(adds)
    , m_ownsShapes(adds)
{
}

PresenceCommand::~PresenceCommand()
{
    if (!m_ownsShapes)
        return;
    for (const Document::Placement &placement : std::as_const(m_placements))
        delete placement.shape;
}

PresenceCommand *PresenceCommand::adding(Document *document, const QList<Shape *> &shapes, const QString &text)
{
    auto *command = new PresenceCommand(document, true, text);
    for (Shape *shape : shapes)
        command->m_placements.append({document->shapeCount() + int(command->m_placements.size()), shape});
    return command;
}

PresenceCommand *PresenceCommand::removing(Document *document, const QList<Shape *> &shapes, const QString &text)
{
    auto *command = new PresenceCommand(document, false, text);
    for (Shape *shape : shapes)
        command->m_placements.append({Document::row(shape), shape});
    return command;
}

void PresenceCommand::put(bool into)
{
    if (into) {
        m_document->insert(m_placements);
    } else {
        QList<Shape *> shapes;
        for (const Document::Placement &placement : std::as_const(m_placements))
            shapes.append(placement.shape);
        m_placements = m_document->take(shapes);
    }
    m_ownsShapes = !into;
}
