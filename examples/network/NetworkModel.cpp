// SPDX-License-Identifier: MIT
#include "NetworkModel.h"

#include "Device.h"
#include "Port.h"
#include "Site.h"

#include <QApplication>
#include <QStyle>

NetworkModel::NetworkModel()
{
    int number = 0;
    const auto addDevice = [&](Node *site, const QString &name, Device::Kind kind, int ports) {
        ++number;
        auto *device =
            new Device(name, kind, QStringLiteral("10.0.0.%1").arg(number), QStringLiteral("SN-%1").arg(4700 + number));
        for (int i = 0; i < ports; ++i)
            device->insert(i, new Port(QStringLiteral("eth%1").arg(i), i == 0 ? 10 : 1));
        site->insert(int(site->children().size()), device);
    };
    auto *north = new Site(QStringLiteral("North"), QStringLiteral("Oslo"));
    addDevice(north, QStringLiteral("gate"), Device::Router, 2);
    addDevice(north, QStringLiteral("floor-1"), Device::Switch, 4);
    auto *south = new Site(QStringLiteral("South"), QStringLiteral("Rome"));
    addDevice(south, QStringLiteral("gate"), Device::Router, 2);
    addDevice(south, QStringLiteral("archive"), Device::Host, 1);
    insert(&m_root, 0, north);
    insert(&m_root, 1, south);
}

Node *NetworkModel::nodeAt(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<Node *>(index.internalPointer()) : &m_root;
}

QModelIndex NetworkModel::indexOf(const Node *node) const
{
    return node->parentNode() ? createIndex(node->row(), 0, node) : QModelIndex();
}

QList<Node *> NetworkModel::nodes() const
{
    QList<Node *> nodes = m_root.children();
    for (qsizetype i = 0; i < nodes.size(); ++i)
        nodes.append(nodes.at(i)->children());
    return nodes;
}

void NetworkModel::insert(Node *parent, int row, Node *node)
{
    beginInsertRows(indexOf(parent), row, row);
    parent->insert(row, node);
    watch(node);
    endInsertRows();
}

Node *NetworkModel::take(Node *node)
{
    Node *parent = node->parentNode();
    const int row = node->row();
    beginRemoveRows(indexOf(parent), row, row);
    parent->take(row);
    endRemoveRows();
    return node;
}

void NetworkModel::watch(Node *node)
{
    connect(node, &Node::changed, this, &NetworkModel::showChange, Qt::UniqueConnection);
    for (Node *child : node->children())
        watch(child);
}

void NetworkModel::showChange()
{
    const QModelIndex index = indexOf(static_cast<Node *>(sender()));
    if (index.isValid())
        Q_EMIT dataChanged(index, index, {Qt::DisplayRole});
}

QModelIndex NetworkModel::index(int row, int column, const QModelIndex &parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column, nodeAt(parent)->children().at(row)) : QModelIndex();
}

QModelIndex NetworkModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(nodeAt(index)->parentNode()) : QModelIndex();
}

int NetworkModel::rowCount(const QModelIndex &parent) const
{
    return int(nodeAt(parent)->children().size());
}

int NetworkModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant NetworkModel::data(const QModelIndex &index, int role) const
{
    Node *node = nodeAt(index);
    switch (role) {
    case Qt::DisplayRole:
        return node->name();
    case Qt::DecorationRole:
        return QApplication::style()->standardIcon(node->isSite()     ? QStyle::SP_DirIcon
                                                   : node->isDevice() ? QStyle::SP_ComputerIcon
                                                                      : QStyle::SP_DriveNetIcon);
    case ObjectRole:
        return QVariant::fromValue<QObject *>(node);
    default:
        return {};
    }
}

QVariant NetworkModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isTitle = section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isTitle ? tr("Network") : QVariant();
}
