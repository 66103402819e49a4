// SPDX-License-Identifier: MIT
#include "commands/OrderCommand.h"

#include "model/Document.h"

OrderCommand::OrderCommand(Document *document, const QList<Shape *> &order, const QString &text)
    : QUndoCommand(text)
    , m_document(document)
    , m_before(document->shapes())
    , m_after(order)
{
}

void OrderCommand::undo()
{
    m_document->setOrder(m_before);
}

void OrderCommand::redo()
{
    m_document->setOrder(m_after);
}
