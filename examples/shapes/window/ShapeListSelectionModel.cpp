// SPDX-License-Identifier: MIT
#include "window/ShapeListSelectionModel.h"

#include "model/Selection.h"
#include "window/ShapeListModel.h"

#include <QSet>

ShapeListSelectionModel::ShapeListSelectionModel(ShapeListModel *model, Selection *selection, QObject *parent)
    : QItemSelectionModel(model, parent)
    , m_model(model)
    , m_selection(selection)
{
}

void ShapeListSelectionModel::select(const QModelIndex &index, SelectionFlags command)
{
    select(QItemSelection(index, index), command);
}

void ShapeListSelectionModel::select(const QItemSelection &rows, SelectionFlags command)
{
    if (command == NoUpdate)
        return;
    if (command & Clear)
        m_base.clear();
    else if (!(command & Current))
        m_base = m_selection->shapes();

    QList<Shape *> shapes;
    for (const QItemSelectionRange &range : rows) {
        if (range.isValid())
            shapes += m_model->shapesIn(range.top(), range.bottom());
    }
    if (command & Deselect) {
        const QSet<Shape *> deselected(shapes.cbegin(), shapes.cend());
        shapes = m_base;
        shapes.removeIf([&](Shape *shape) { return deselected.contains(shape); });
        m_selection->set(shapes);
    } else if (command & Toggle) {
        m_selection->toggle(shapes);
    } else {
        m_selection->set(m_base + shapes);
    }
}

void ShapeListSelectionModel::clear()
{
    m_base.clear();
    m_selection->clear();
    clearCurrentIndex();
}

void ShapeListSelectionModel::reset()
{
    m_base.clear();
    QItemSelectionModel::reset();
}
