// SPDX-License-Identifier: MIT
#pragma once

#include "model/Document.h"

#include <QUndoCommand>

/// Adds shapes to a document or removes them. Owns the shapes while they are not in the document.
class PresenceCommand : public QUndoCommand
{
public:
    /// Adds the shapes on top.
    static PresenceCommand *adding(Document *document, const QList<Shape *> &shapes, const QString &text);
    static PresenceCommand *removing(Document *document, const QList<Shape *> &shapes, const QString &text);
    ~PresenceCommand() override;

    void undo() override { put(!m_adds); }
    void redo() override { put(m_adds); }

private:
    PresenceCommand(Document *document, bool adds, const QString &text);
    void put(bool into);

    Document *m_document;
    Document::Placements m_placements;
    bool m_adds;
    bool m_ownsShapes;
};
