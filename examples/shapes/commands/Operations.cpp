// SPDX-License-Identifier: MIT
#include "commands/Operations.h"

#include "commands/AlignCommand.h"
#include "commands/MoveCommand.h"
#include "commands/OrderCommand.h"
#include "commands/PresenceCommand.h"
#include "commands/PropertyCommand.h"
#include "model/Selection.h"

#include <QUndoStack>
#include <algorithm>

namespace {
/// Moves the selected of a list one place towards its end; neighbours that are all selected move together.
void moveOneTowardsEnd(QList<Shape *> &shapes, const Selection &selection)
{
    for (qsizetype i = shapes.size() - 2; i >= 0; --i) {
        if (selection.contains(shapes[i]) && !selection.contains(shapes[i + 1]))
            shapes.swapItemsAt(i, i + 1);
    }
}
} // namespace

Operations::Operations(Document *document, Selection *selection, QUndoStack *undoStack, QObject *parent)
    : QObject(parent)
    , m_document(document)
    , m_selection(selection)
    , m_undoStack(undoStack)
{
}

void Operations::addShape(Shape::Kind kind, const QRectF &around)
{
    static const char *const names[] = {QT_TR_NOOP("Rectangle"), QT_TR_NOOP("Ellipse"), QT_TR_NOOP("Star"),
                                        QT_TR_NOOP("Polygon"), QT_TR_NOOP("Text")};
    QRectF rect(0, 0, 120, 90);
    rect.moveCenter(around.center());
    auto *shape = new Shape(kind, rect);
    shape->setName(tr("%1 %2").arg(tr(names[kind])).arg(shape->id() + 1));
    if (kind == Shape::Text)
        shape->setText(tr("Text"));
    m_undoStack->push(PresenceCommand::adding(m_document, {shape}, tr("Add %1").arg(tr(names[kind]))));
    m_selection->set({shape});
}

QList<Shape *> Operations::movableShapes() const
{
    QList<Shape *> shapes = m_selection->shapes();
    shapes.removeIf([](const Shape *shape) { return shape->isLocked(); });
    return shapes;
}

void Operations::moveBy(const QPointF &offset)
{
    const QList<Shape *> shapes = movableShapes();
    if (!shapes.isEmpty())
        m_undoStack->push(new MoveCommand(shapes, offset, MoveCommand::Nudged, tr("Move")));
}

void Operations::recordMove(const QList<Shape *> &shapes, const QPointF &offset)
{
    m_undoStack->push(new MoveCommand(shapes, offset, MoveCommand::Dragged, tr("Move")));
}

void Operations::align(Qt::Alignment edges)
{
    const QList<Shape *> shapes = movableShapes();
    if (shapes.size() > 1)
        m_undoStack->push(new AlignCommand(shapes, edges, tr("Align")));
}

void Operations::duplicate()
{
    QList<Shape *> copies;
    for (const Shape *shape : m_selection->shapes()) {
        Shape *copy = shape->clone();
        copy->setPosition(shape->position() + QPointF(12, 12));
        copies.append(copy);
    }
    if (copies.isEmpty())
        return;
    m_undoStack->push(PresenceCommand::adding(m_document, copies, tr("Duplicate")));
    m_selection->set(copies);
}

void Operations::remove()
{
    if (!m_selection->isEmpty())
        m_undoStack->push(PresenceCommand::removing(m_document, m_selection->shapes(), tr("Delete")));
}

void Operations::raise()
{
    QList<Shape *> order = m_document->shapes();
    moveOneTowardsEnd(order, *m_selection);
    setOrder(order, tr("Raise"));
}

void Operations::lower()
{
    QList<Shape *> order = m_document->shapes();
    std::reverse(order.begin(), order.end());
    moveOneTowardsEnd(order, *m_selection);
    std::reverse(order.begin(), order.end());
    setOrder(order, tr("Lower"));
}

void Operations::raiseToTop()
{
    QList<Shape *> order = m_document->shapes();
    std::stable_partition(order.begin(), order.end(), [this](Shape *shape) { return !m_selection->contains(shape); });
    setOrder(order, tr("Raise to Top"));
}

void Operations::lowerToBottom()
{
    QList<Shape *> order = m_document->shapes();
    std::stable_partition(order.begin(), order.end(), [this](Shape *shape) { return m_selection->contains(shape); });
    setOrder(order, tr("Lower to Bottom"));
}

void Operations::keepShadowOffset()
{
    const QVariant offset = m_selection->count() == 1 ? m_selection->shapes().first()->shadowOffset() : QVariant();
    if (offset.isValid() && offset != m_document->property("standardShadowOffset"))
        m_undoStack->push(
            new PropertyCommand(m_document, "standardShadowOffset", offset, tr("Change Shadow of New Shapes")));
}

void Operations::setOrder(const QList<Shape *> &order, const QString &text)
{
    if (order != m_document->shapes())
        m_undoStack->push(new OrderCommand(m_document, order, text));
}
