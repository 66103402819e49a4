// SPDX-License-Identifier: MIT
#include "window/InspectorOwner.h"

#include "commands/Operations.h"
#include "model/Selection.h"
#include "window/Actions.h"

InspectorOwner::InspectorOwner(Document *document, Selection *selection, Operations *operations, Actions *actions,
                               QObject *parent)
    : QObject(parent)
    , m_document(document)
    , m_selection(selection)
    , m_operations(operations)
    , m_actions(actions)
{
    connect(selection, &Selection::changed, this, &InspectorOwner::selectionChanged);
    connect(selection, &Selection::changed, this, &InspectorOwner::summaryChanged);
    connect(document, &Document::shapeChanged, this, [this](Shape *shape) {
        if (m_selection->count() == 1 && m_selection->shapes().first() == shape)
            Q_EMIT summaryChanged();
    });
}

void InspectorOwner::setSelectionController(QObject *controller)
{
    if (m_selectionController == controller)
        return;
    m_selectionController = controller;
    Q_EMIT selectionControllerChanged();
}

void InspectorOwner::setDocumentController(QObject *controller)
{
    if (m_documentController == controller)
        return;
    m_documentController = controller;
    Q_EMIT documentControllerChanged();
}

int InspectorOwner::selectionCount() const
{
    return m_selection->count();
}

QString InspectorOwner::selectionSummary() const
{
    if (m_selection->isEmpty())
        return tr("Nothing");
    return m_selection->count() == 1 ? m_selection->shapes().first()->name()
                                     : tr("%L1 shapes").arg(m_selection->count());
}

QString InspectorOwner::deleteTitle() const
{
    return m_selection->count() > 1 ? tr("Delete %L1 Shapes").arg(m_selection->count()) : tr("Delete");
}

QString InspectorOwner::alignTitle() const
{
    return tr("Align %L1 Shapes").arg(m_selection->count());
}

QList<QAction *> InspectorOwner::orderActions() const
{
    return m_actions->range(Actions::Raise, Actions::LowerToBottom);
}

QList<QAction *> InspectorOwner::alignActions() const
{
    return m_actions->range(Actions::AlignLeft, Actions::AlignBottom);
}

void InspectorOwner::duplicateShapes()
{
    m_operations->duplicate();
}

void InspectorOwner::deleteShapes()
{
    m_operations->remove();
}

void InspectorOwner::selectAllShapes()
{
    m_selection->selectAll();
}

void InspectorOwner::selectSimilarShapes()
{
    quint32 kinds = 0;
    for (const Shape *shape : m_selection->shapes())
        kinds |= 1u << shape->kind();
    QList<Shape *> similar = m_document->shapes();
    similar.removeIf([kinds](const Shape *shape) { return !(kinds >> shape->kind() & 1); });
    m_selection->set(similar);
}

void InspectorOwner::keepShadowOffset()
{
    m_operations->keepShadowOffset();
}
