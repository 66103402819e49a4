// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>

class Document;
class Selection;
class ShapeListModel;

/// The list of the shapes. Shows and changes the selection of the document.
class ShapeListView : public QListView
{
    Q_OBJECT
public:
    ShapeListView(Document *document, Selection *selection, QWidget *parent = nullptr);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event) const override;

private:
    void selectionChangedInDocument();

    Selection *m_selection;
    ShapeListModel *m_model;
    mutable bool m_deselects = false; // by a press with the Control key, and the moves after it
};
