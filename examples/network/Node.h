// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>

/// A part of the network: what stands in the tree. It knows nothing of Zel, nor do the classes derived from it.
class Node : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY changed)
    Q_PROPERTY(QString notes MEMBER m_notes NOTIFY changed)
    Q_PROPERTY(bool isSite READ isSite CONSTANT)
    Q_PROPERTY(bool isDevice READ isDevice CONSTANT)
    Q_PROPERTY(bool isPort READ isPort CONSTANT)
public:
    explicit Node(const QString &name)
        : m_name(name)
    {
    }
    ~Node() override { qDeleteAll(m_children); }

    const QString &name() const { return m_name; }
    virtual bool isSite() const { return false; }
    virtual bool isDevice() const { return false; }
    virtual bool isPort() const { return false; }

    Node *parentNode() const { return m_parent; }
    const QList<Node *> &children() const { return m_children; }
    int row() const { return m_parent ? int(m_parent->m_children.indexOf(this)) : 0; }
    /// The child belongs to this node until it is taken.
    void insert(int row, Node *child)
    {
        child->m_parent = this;
        m_children.insert(row, child);
    }
    Node *take(int row)
    {
        m_children.at(row)->m_parent = nullptr;
        return m_children.takeAt(row);
    }

Q_SIGNALS:
    void changed();

private:
    QString m_name;
    QString m_notes;
    Node *m_parent = nullptr;
    QList<Node *> m_children;
};
