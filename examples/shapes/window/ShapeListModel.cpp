// SPDX-License-Identifier: MIT
#include "window/ShapeListModel.h"

#include "model/Document.h"
#include "model/Selection.h"
#include "window/Icons.h"

#include <QGuiApplication>
#include <QPalette>

ShapeListModel::ShapeListModel(Document *document, Selection *selection, QObject *parent)
    : QAbstractListModel(parent)
    , m_document(document)
    , m_selection(selection)
{
    connect(document, &Document::structureAboutToChange, this, [this] { beginResetModel(); });
    connect(document, &Document::structureChanged, this, [this] { endResetModel(); });
    connect(document, &Document::shapeChanged, this, &ShapeListModel::shapeChanged);
}

Shape *ShapeListModel::shapeAt(const QModelIndex &index) const
{
    return m_document->shapes()[m_document->shapeCount() - 1 - index.row()];
}

QModelIndex ShapeListModel::indexOf(const Shape *shape) const
{
    return index(m_document->shapeCount() - 1 - Document::row(shape));
}

QList<Shape *> ShapeListModel::shapesIn(int first, int last) const
{
    return m_document->shapes().mid(m_document->shapeCount() - 1 - last, last - first + 1);
}

int ShapeListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_document->shapeCount();
}

QVariant ShapeListModel::data(const QModelIndex &index, int role) const
{
    const Shape *shape = shapeAt(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return shape->name();
    case Qt::DecorationRole:
        return Icons::ofKind(shape->kind());
    case Qt::ForegroundRole:
        if (shape->isLocked() || !m_document->isShown(shape))
            return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
        return {};
    case SelectedRole:
        return m_selection->contains(shape);
    default:
        return {};
    }
}

bool ShapeListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole)
        return false;
    shapeAt(index)->setName(value.toString());
    return true;
}

Qt::ItemFlags ShapeListModel::flags(const QModelIndex &index) const
{
    return QAbstractListModel::flags(index) | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

void ShapeListModel::shapeChanged(Shape *shape)
{
    const int row = indexOf(shape).row();
    if (m_firstChanged < 0) {
        m_firstChanged = m_lastChanged = row;
        QMetaObject::invokeMethod(this, &ShapeListModel::announceChanges, Qt::QueuedConnection);
    }
    m_firstChanged = qMin(m_firstChanged, row);
    m_lastChanged = qMax(m_lastChanged, row);
}

void ShapeListModel::announceChanges()
{
    const int last = qMin(m_lastChanged, m_document->shapeCount() - 1);
    if (m_firstChanged <= last)
        Q_EMIT dataChanged(index(m_firstChanged), index(last));
    m_firstChanged = m_lastChanged = -1;
}
