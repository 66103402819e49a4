// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>

class Document;
class Selection;
class Shape;

/// The shapes of a document, the topmost first. Many changes of one turn are announced together.
class ShapeListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    /// The role of whether a shape is selected.
    static constexpr int SelectedRole = Qt::UserRole;

    ShapeListModel(Document *document, Selection *selection, QObject *parent = nullptr);

    Shape *shapeAt(const QModelIndex &index) const;
    QModelIndex indexOf(const Shape *shape) const;
    /// The shapes from the row down to the last one, both included.
    QList<Shape *> shapesIn(int first, int last) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    void shapeChanged(Shape *shape);
    void announceChanges();

    Document *m_document;
    Selection *m_selection;
    int m_firstChanged = -1;
    int m_lastChanged = -1;
};
