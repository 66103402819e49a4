// SPDX-License-Identifier: MIT
#pragma once

#include <QDockWidget>
#include <QPointer>
#include <QUrl>

class InspectorOwner;
class QUndoStack;
class Selection;
class ZelObjectController;
class ZelTabbedInspector;

/// The dock with the inspector: all that the application has to do with Zel is done here.
class InspectorDock : public QDockWidget
{
    Q_OBJECT
public:
    InspectorDock(InspectorOwner *owner, Selection *selection, QUndoStack *undoStack, QWidget *window);
    ~InspectorDock() override;

    /// Builds the inspector from Inspector.xml in the folder; an empty one stands for the application's resources. What
    /// is wrong with the files is reported and shown in the dock.
    void load(const QString &folder);
    void selectTab(int index);

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void clear();
    void showSelection();
    void showMessage(const QString &message);

    InspectorOwner *m_owner;
    Selection *m_selection;
    ZelObjectController *m_controller;
    QPointer<ZelTabbedInspector> m_inspector;
    QUrl m_url;
    int m_tab = 0;
};
