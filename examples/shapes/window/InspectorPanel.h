// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QUrl>
#include <QWidget>

class InspectorOwner;
class QUndoStack;
class Selection;
class ZelObjectController;
class ZelTabbedInspector;

/// The part of the window with the inspector: all that the application has to do with the description is done here.
class InspectorPanel : public QWidget
{
    Q_OBJECT
public:
    InspectorPanel(InspectorOwner *owner, Selection *selection, QUndoStack *undoStack, QWidget *window);
    ~InspectorPanel() override;

    /// Builds the inspector from Inspector.xml in the folder; an empty one stands for the application's resources. What
    /// is wrong with the files is reported and shown in its place.
    void load(const QString &folder);
    /// Nothing for a negative one.
    void selectTab(int index);
    /// Takes what is being typed. Answers false if it cannot be taken, which the inspector shows.
    bool commitEditing();
    /// Goes to the field that finds rows.
    void focusSearchField();

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void clear();
    void setContent(QWidget *content);
    void showSelection();
    void showMessage(const QString &message);

    InspectorOwner *m_owner;
    Selection *m_selection;
    ZelObjectController *m_controller;
    ZelObjectController *m_documentController; // of the document alone
    QPointer<ZelTabbedInspector> m_inspector;
    QPointer<QWidget> m_content; // the inspector's view, or a message
    QUrl m_url;
    int m_tab = -1; // to be selected when there is an inspector
};
