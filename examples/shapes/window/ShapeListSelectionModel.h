// SPDX-License-Identifier: MIT
#pragma once

#include <QItemSelectionModel>

class Selection;
class Shape;
class ShapeListModel;

/// Passes on to the document's selection what a view selects, and keeps no selection of its own.
///
/// Ranges of rows, which is what the base class keeps, take a time that grows with the square of their number: a
/// selection of every second shape of a hundred thousand would take minutes. The view shows the model's SelectedRole
/// instead.
class ShapeListSelectionModel : public QItemSelectionModel
{
    Q_OBJECT
public:
    ShapeListSelectionModel(ShapeListModel *model, Selection *selection, QObject *parent = nullptr);

    using QItemSelectionModel::select;
    void select(const QItemSelection &rows, SelectionFlags command) override;
    void select(const QModelIndex &index, SelectionFlags command) override;
    void clear() override;
    void reset() override;

private:
    ShapeListModel *m_model;
    Selection *m_selection;
    QList<Shape *> m_base; // selected before the range that is being pulled up
};
