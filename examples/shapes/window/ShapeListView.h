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

private:
    void selectionChangedInDocument();

    Selection *m_selection;
    ShapeListModel *m_model;
};
