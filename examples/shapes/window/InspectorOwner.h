// SPDX-License-Identifier: MIT
#pragma once

#include "model/Document.h"

#include <QAction>

class Actions;
class Operations;
class Selection;

/// What the inspector's description sees of the application: its key paths begin and its actions end here.
class InspectorOwner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *selectionController READ selectionController WRITE setSelectionController NOTIFY
                   selectionControllerChanged)
    Q_PROPERTY(QObject *documentController READ documentController WRITE setDocumentController NOTIFY
                   documentControllerChanged)
    Q_PROPERTY(Document *document READ document CONSTANT)
    Q_PROPERTY(int selectionCount READ selectionCount NOTIFY selectionChanged)
    Q_PROPERTY(bool hasSelection READ hasSelection NOTIFY selectionChanged)
    Q_PROPERTY(bool hasOneShape READ hasOneShape NOTIFY selectionChanged)
    Q_PROPERTY(bool hasSeveralShapes READ hasSeveralShapes NOTIFY selectionChanged)
    Q_PROPERTY(QString selectionSummary READ selectionSummary NOTIFY summaryChanged)
    Q_PROPERTY(QString deleteTitle READ deleteTitle NOTIFY selectionChanged)
    Q_PROPERTY(QString alignTitle READ alignTitle NOTIFY selectionChanged)
    Q_PROPERTY(QList<QAction *> orderActions READ orderActions CONSTANT)
    Q_PROPERTY(QList<QAction *> alignActions READ alignActions CONSTANT)

public:
    InspectorOwner(Document *document, Selection *selection, Operations *operations, Actions *actions,
                   QObject *parent = nullptr);

    QObject *selectionController() const { return m_selectionController; }
    void setSelectionController(QObject *controller);
    /// The editors of the document's own values write through it: most of them store a single key in each of the
    /// controller's objects.
    QObject *documentController() const { return m_documentController; }
    void setDocumentController(QObject *controller);
    Document *document() const { return m_document; }
    int selectionCount() const;
    bool hasSelection() const { return selectionCount() > 0; }
    bool hasOneShape() const { return selectionCount() == 1; }
    bool hasSeveralShapes() const { return selectionCount() > 1; }
    /// The name of the selected shape, or how many there are.
    QString selectionSummary() const;
    QString deleteTitle() const;
    QString alignTitle() const;
    QList<QAction *> orderActions() const;
    QList<QAction *> alignActions() const;

public Q_SLOTS:
    void duplicateShapes();
    void deleteShapes();
    void selectAllShapes();
    void selectSimilarShapes();
    /// Makes the shadow of the selected shape the standard of the document.
    void keepShadowOffset();

Q_SIGNALS:
    void selectionControllerChanged();
    void documentControllerChanged();
    void selectionChanged();
    /// Also when the only selected shape has changed.
    void summaryChanged();

private:
    Document *m_document;
    Selection *m_selection;
    Operations *m_operations;
    Actions *m_actions;
    QObject *m_selectionController = nullptr;
    QObject *m_documentController = nullptr;
};
