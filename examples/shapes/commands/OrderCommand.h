// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QUndoCommand>

class Document;
class Shape;

/// Puts the shapes of a document in another order.
class OrderCommand : public QUndoCommand
{
public:
    OrderCommand(Document *document, const QList<Shape *> &order, const QString &text);

    void undo() override;
    void redo() override;

private:
    Document *m_document;
    QList<Shape *> m_before;
    QList<Shape *> m_after;
};
