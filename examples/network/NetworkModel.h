// SPDX-License-Identifier: MIT
#pragma once

#include "Node.h"

#include <QAbstractItemModel>

/// The network as a tree. ObjectRole answers the node of a row, which is what the inspector edits.
class NetworkModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Role { ObjectRole = Qt::UserRole };

    /// The network of an invented company.
    NetworkModel();

    QModelIndex indexOf(const Node *node) const;
    /// Every node, parents before their children.
    QList<Node *> nodes() const;

    void insert(Node *parent, int row, Node *node);
    /// The node belongs to the caller then.
    Node *take(Node *node);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    Node *nodeAt(const QModelIndex &index) const;
    void watch(Node *node);
    void showChange();

    mutable Node m_root{QString()};
};
