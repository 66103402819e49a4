// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Checking/ZelTypeTable.h"
#include "PreviewNeeds.h"
#include "PreviewObject.h"

#include <QJsonObject>
#include <QObject>
#include <memory>

class ZelArrayController;

/// The model behind a preview: the owner of the panel and everything that the key paths of the description lead to.
///
/// Where a key path goes through a selection, there are objects of each class that can be selected: the first two have
/// different values, the third equals the first, and the fourth has no value where that is allowed. A model grows with
/// the description: objects and their values stay. Without types, the classes are those that the description names now;
/// objects of others are kept for Undo, and cannot be selected.
class PreviewModel : public QObject
{
    Q_OBJECT
public:
    struct Settings
    {
        ZelTypeTable types; ///< if there are any, only the properties of these classes exist
        QString owner;      ///< the owner's class; the one that fits best if there is none of that name
        QHash<QString, QStringList> selections; ///< the classes of what the controllers select, by their key paths
        QJsonObject data; ///< values of the owner by key; lists of objects by the controllers' key paths
    };
    static constexpr int objectCount = 4;

    explicit PreviewModel(Settings settings);
    ~PreviewModel() override;

    void grow(const PreviewNeeds &needs);
    QObject *owner() const;
    /// What the objects are called of the controller of whose objects most keys are used; empty if there is none.
    QStringList titles() const;
    /// Selects the objects at these positions in all controllers.
    void select(const QList<int> &rows);
    const QList<int> &selectedRows() const { return m_selectedRows; }

Q_SIGNALS:
    void methodCalled(const QString &name);

private:
    struct Node;
    Node *childOf(Node &node, const QString &key, const QString &path, bool isSelection);
    void add(Node &node, const QStringList &keys, const QString &path, const PreviewNeeds::Value &needed);
    void addValue(Node &node, const QString &key, const PreviewNeeds::Value &needed);
    using Classes = QList<const ZelTypeTable::Class *>; // of objects that are selected together, or one
    Classes classesFor(const Node &node, const QString &key, const QString &path, bool isSelection) const;
    Classes classesNamed(const QStringList &names) const;
    Classes classWith(const QStringList &keys) const;
    ZelTypeTable::Found property(const Node &node, const QString &key) const;
    QMetaType typeOf(const ZelTypeTable::Found &property) const;
    QStringList keysBelow(const QString &path) const;
    void useTypes(Node &node, const Classes &known);
    void addPart(Node &node, const QByteArray &name, const ZelTypeTable::Class *known);
    void takeClasses(Node &node);
    void makeObjects(Node &node);
    void attach(Node &node, const QString &key, const Node &child) const;
    QByteArrayList basesOf(const ZelTypeTable::Class &type) const;
    bool hasKey(const ZelTypeTable::Class *type, const QString &key) const;
    static QVariant valueFor(PreviewObject &object, const QString &key, const PreviewNeeds::Value &needed,
                             QMetaType type, const QJsonObject &data, int place);

    Settings m_settings;
    PreviewNeeds m_needs;
    std::unique_ptr<Node> m_owner;
    QList<ZelArrayController *> m_controllers;
    QList<int> m_selectedRows;
};
