// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKey.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QMetaType>
#include <memory>
#include <vector>

/// What one key of a model's rows stands for.
struct ZelModelKey
{
    ZelKey key;
    int column = 0;
    int role = Qt::EditRole;
    QMetaType type = {}; ///< of its values; invalid if each value has its own

    /// Whether its values are the states of a check box, which are read and written as booleans.
    bool isChecked() const { return role == Qt::CheckStateRole; }
    bool operator==(const ZelModelKey &other) const
    {
        return key == other.key && column == other.column && role == other.role && type == other.type;
    }
};

class ZelModelKeys;

/// A class of items: the rows of a model that have the same keys, of which the same are read-only. To the rest of the
/// library it is a class as any other, which has its own meta-object and accessors of its own.
struct ZelModelItemClass
{
    const ZelModelKeys *keys;
    QMetaObject metaObject;
    QByteArray states; ///< one for each key, see ZelModelKeys::classOf
};

/// The keys by which the rows of a model are read and written. Equal ones are one object, which is never deleted, as
/// accessors are kept for ever.
class ZelModelKeys
{
public:
    /// The keys of a model: those that the application has named, which come first, then the model's role names, which
    /// mean the first column, and the texts of its headers.
    static const ZelModelKeys *of(const QAbstractItemModel &model, const QList<ZelModelKey> &named);
    /// A header's text as a key: "Due date" becomes dueDate. Empty if it has no letter to begin with.
    static QString keyOfHeader(const QString &text);

    const QList<ZelModelKey> &keys() const { return m_keys; }
    /// The class of the row of that index. A locked row has read-only keys only.
    const ZelModelItemClass *classOf(const QModelIndex &row, bool isLocked) const;
    /// The places of the keys that a change of these columns and roles concerns; the only one -1 stands for all.
    QList<int> concerned(int firstColumn, int lastColumn, const QList<int> &roles) const;

private:
    explicit ZelModelKeys(const QList<ZelModelKey> &keys)
        : m_keys(keys)
    {
    }
    const ZelModelItemClass *makeClass(const QByteArray &states) const;

    QList<ZelModelKey> m_keys;
    mutable QHash<QByteArray, const ZelModelItemClass *> m_classes;
    mutable const ZelModelItemClass *m_last = nullptr;
};
