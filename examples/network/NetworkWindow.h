// SPDX-License-Identifier: MIT
#pragma once

#include "NetworkModel.h"

#include <Core/Errors/ZelExceptionReporter.h>
#include <Core/Selection/ZelArrayController.h>

#include <QMainWindow>
#include <QTreeView>
#include <QUndoStack>

/// A window with the tree and, at its right, the inspector. It is the owner of the inspector: key paths begin and
/// actions end here.
class NetworkWindow : public QMainWindow, private ZelExceptionReporter
{
    Q_OBJECT
    Q_PROPERTY(QObject *selectionController READ selectionController CONSTANT)
    Q_PROPERTY(int standardVlan READ standardVlan CONSTANT)
public:
    NetworkWindow();
    ~NetworkWindow() override;

    QObject *selectionController() { return &m_controller; }
    int standardVlan() const { return 1; }
    NetworkModel &model() { return m_model; }
    QTreeView *tree() const { return m_tree; }
    QUndoStack &undoStack() { return m_stack; }

public Q_SLOTS:
    /// Selects the ports of the selected devices.
    void selectPorts();

private:
    void makeTree();
    void makeMenu();
    void makeInspector();
    void removeSelected();
    void reportException(const QString &message, const ZelSourcePlace &place) override;

    NetworkModel m_model;
    QUndoStack m_stack;
    ZelArrayController m_controller;
    QTreeView *m_tree;
};
