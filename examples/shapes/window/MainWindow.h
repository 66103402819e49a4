// SPDX-License-Identifier: MIT
#pragma once

#include "commands/Operations.h"
#include "model/Document.h"
#include "model/Selection.h"
#include "window/Actions.h"
#include "window/InspectorOwner.h"
#include "window/Languages.h"
#include "window/Panes.h"

#include <QMainWindow>
#include <QPointer>
#include <QUndoStack>

class Canvas;
class CanvasArea;
class InspectorPanel;
class QLabel;
class ShapeListView;
struct Options;

/// The window: the canvas, the list of the shapes and the inspector.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(const Options &options);
    ~MainWindow() override;

    Document &document() { return m_document; }
    Selection &selection() { return m_selection; }
    QUndoStack &undoStack() { return m_undoStack; }
    Actions &actions() { return m_actions; }
    Panes &panes() { return *m_panes; }
    CanvasArea &canvasArea() { return *m_canvasArea; }

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void createPanes(const Options &options);
    void createMenus();
    void createToolBar();
    void connectActions();
    void connectView();
    void fill(const Options &options);

    QMenu *addTranslatedMenu(QMenuBar *bar, const char *title);
    void setLanguage(const QString &language);
    void setDark(bool dark);
    void chooseZoom();
    void focusNextArea(int step);
    void focusDidChange(QWidget *widget);
    void retranslate();
    void updateActions();
    void updateStatus();

    Languages m_languages;
    Document m_document;
    Selection m_selection{&m_document};
    QUndoStack m_undoStack;
    Operations m_operations{&m_document, &m_selection, &m_undoStack};
    Actions m_actions;
    InspectorOwner m_owner{&m_document, &m_selection, &m_operations, &m_actions};

    Canvas *m_canvas;
    CanvasArea *m_canvasArea;
    ShapeListView *m_list;
    InspectorPanel *m_inspector;
    Panes *m_panes;
    QString m_settings;                                 // the file; empty to keep nothing
    QList<QPointer<QWidget>> m_lastFocus[Panes::Count]; // what had it, and the controls around that
    double m_firstZoom;                                 // asked for, until the window is shown
    QToolBar *m_toolBar;
    QAction *m_languageSection = nullptr;
    QLabel *m_selectionLabel;
    QLabel *m_zoomLabel;
    QList<QPair<QMenu *, const char *>> m_menus;
};
