// SPDX-License-Identifier: MIT
#include "model/Selection.h"

#include "model/Document.h"
#include "model/Shape.h"

Selection::Selection(Document *document, QObject *parent)
    : QObject(parent)
    , m_document(document)
{
    connect(document, &Document::structureChanged, this, &Selection::documentChanged);
}

bool Selection::contains(const Shape *shape) const
{
    return size_t(shape->id()) < m_members.size() && m_members[shape->id()];
}

void Selection::set(const QList<Shape *> &shapes)
{
    apply(membersOf(shapes));
}

void Selection::add(const QList<Shape *> &shapes)
{
    apply(membersOf(m_shapes + shapes));
}

void Selection::toggle(const QList<Shape *> &shapes)
{
    std::vector<bool> members = membersOf(m_shapes + shapes);
    for (const Shape *shape : shapes) {
        if (contains(shape))
            members[shape->id()] = false;
    }
    apply(std::move(members));
}

void Selection::selectAll()
{
    QList<Shape *> shapes = m_document->shapes();
    shapes.removeIf([this](const Shape *shape) { return shape->isLocked() || !m_document->isShown(shape); });
    set(shapes);
}

void Selection::documentChanged()
{
    // Shapes that went away may be deleted soon; a change of the order is a change of the selection, too.
    apply(membersOf(m_shapes));
}

std::vector<bool> Selection::membersOf(const QList<Shape *> &shapes) const
{
    int size = 0;
    for (const Shape *shape : shapes)
        size = qMax(size, shape->id() + 1);
    std::vector<bool> members(size);
    for (const Shape *shape : shapes)
        members[shape->id()] = Document::row(shape) >= 0;
    return members;
}

void Selection::apply(std::vector<bool> members)
{
    QList<Shape *> shapes;
    shapes.reserve(m_document->shapes().size());
    for (Shape *shape : m_document->shapes()) {
        if (size_t(shape->id()) < members.size() && members[shape->id()])
            shapes.append(shape);
    }
    if (shapes == m_shapes)
        return;
    m_shapes = shapes;
    m_members = std::move(members);
    Q_EMIT changed();
}
