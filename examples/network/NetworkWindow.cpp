// SPDX-License-Identifier: MIT
#include "NetworkWindow.h"

#include "RemoveCommand.h"

#include <Blocks/ZelWindow.h>
#include <Core/Errors/ZelException.h>
#include <Core/Selection/ZelItemSelection.h>
#include <Inspector/ZelDeclarativeInspectorGenerator.h>
#include <Inspector/ZelTabbedInspector.h>
#include <ViewController/ZelView.h>

#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>

NetworkWindow::NetworkWindow()
    : m_tree(new QTreeView)
{
    setWindowTitle(tr("Network"));
    makeTree();
    makeMenu();
    makeInspector();
    ZelExceptionReporter::setCurrent(this);
}

NetworkWindow::~NetworkWindow()
{
    ZelExceptionReporter::setCurrent(nullptr);
}

void NetworkWindow::makeTree()
{
    m_tree->setModel(&m_model);
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->expandAll();
    setCentralWidget(m_tree);
    new ZelItemSelection(m_tree->selectionModel(), &m_controller, NetworkModel::ObjectRole);
}

void NetworkWindow::makeMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Edit"));
    QAction *undo = m_stack.createUndoAction(this);
    undo->setShortcut(QKeySequence::Undo);
    QAction *redo = m_stack.createRedoAction(this);
    redo->setShortcut(QKeySequence::Redo);
    menu->addActions({undo, redo});
    menu->addAction(tr("&Remove"), Qt::CTRL | Qt::Key_Backspace, this, &NetworkWindow::removeSelected);
}

void NetworkWindow::makeInspector()
{
    ZelWindow::attach(this, &m_stack); // edits are steps of this stack
    auto *dock = new QDockWidget(tr("Inspector"), this);
    dock->setObjectName("inspector");
    addDockWidget(Qt::RightDockWidgetArea, dock);
    try {
        ZelDeclarativeInspectorGenerator generator;
        generator.setUrl(QUrl("qrc:/Inspector.xml"));
        generator.setOwner(this);
        ZelTabbedInspector *inspector = generator.createTabbedInspector();
        inspector->setParent(this);
        inspector->view()->setMinimumWidth(300); // of itself it is content with very little
        dock->setWidget(inspector->view());
    } catch (const ZelException &exception) { // names file, line and column of what is wrong
        dock->setWidget(new QLabel(QString::fromUtf8(exception.what())));
    }
}

void NetworkWindow::selectPorts()
{
    QList<QObject *> ports;
    for (const QObject *object : m_controller.selectedObjects()) {
        for (Node *child : qobject_cast<const Node *>(object)->children())
            ports.append(child);
    }
    m_controller.setSelectedObjects(ports); // the tree selects them, too
}

void NetworkWindow::removeSelected()
{
    const QList<QObject *> selected = m_controller.selectedObjects();
    m_stack.beginMacro(tr("Remove"));
    for (QObject *object : selected) {
        auto *node = qobject_cast<Node *>(object);
        bool goesWithParent = false;
        for (Node *parent = node->parentNode(); parent; parent = parent->parentNode())
            goesWithParent = goesWithParent || selected.contains(parent);
        if (!goesWithParent)
            m_stack.push(new RemoveCommand(m_model, node));
    }
    m_stack.endMacro();
}

/// What goes wrong in an edit, such as a setter that throws, ends here instead of ending the program.
void NetworkWindow::reportException(const QString &message, const ZelSourcePlace &place)
{
    statusBar()->showMessage(place.appendedTo(message));
}
