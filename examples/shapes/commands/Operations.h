// SPDX-License-Identifier: MIT
#pragma once

#include "model/Shape.h"

class Document;
class QUndoStack;
class Selection;

/// What the user can do with the shapes of a document; all of it can be undone.
class Operations : public QObject
{
    Q_OBJECT
public:
    Operations(Document *document, Selection *selection, QUndoStack *undoStack, QObject *parent = nullptr);

    /// Adds a shape in the middle of the rectangle and selects it.
    void addShape(Shape::Kind kind, const QRectF &around);
    /// Moves the selected shapes that are not locked.
    void moveBy(const QPointF &offset);
    /// Files a move that has already happened, such as by dragging.
    void recordMove(const QList<Shape *> &shapes, const QPointF &offset);
    void align(Qt::Alignment edges);
    /// The selected shapes that are not locked.
    QList<Shape *> movableShapes() const;

public Q_SLOTS:
    void duplicate();
    void remove();
    void raise();
    void lower();
    void raiseToTop();
    void lowerToBottom();
    /// Makes the shadow of the selected shape the standard of the document. Nothing unless there is one shape, with a
    /// shadow.
    void keepShadowOffset();

private:
    void setOrder(const QList<Shape *> &order, const QString &text);

    Document *m_document;
    Selection *m_selection;
    QUndoStack *m_undoStack;
};
