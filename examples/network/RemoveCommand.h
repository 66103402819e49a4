// SPDX-License-Identifier: MIT
#pragma once

#include "NetworkModel.h"

#include <QUndoCommand>
#include <memory>

/// Takes a node, with all below it, out of the network, and brings it back. The edits of the inspector are commands on
/// the same stack.
class RemoveCommand : public QUndoCommand
{
public:
    RemoveCommand(NetworkModel &model, Node *node)
        : QUndoCommand(QObject::tr("Remove %1").arg(node->name()))
        , m_model(model)
        , m_node(node)
    {
    }
    void redo() override
    {
        m_parent = m_node->parentNode();
        m_row = m_node->row();
        m_taken.reset(m_model.take(m_node));
    }
    void undo() override { m_model.insert(m_parent, m_row, m_taken.release()); }

private:
    NetworkModel &m_model;
    Node *m_node;
    Node *m_parent = nullptr;
    int m_row = 0;
    std::unique_ptr<Node> m_taken; // while it is not in the model
};
