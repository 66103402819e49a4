// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Support/Person.h"

/// A model that announces its changes itself, those of its list with indexes.
class Club : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList members READ members WRITE setMembers)
    Q_PROPERTY(QString title READ title WRITE setTitle)
public:
    using QObject::QObject;

    QVariantList members() const { return m_members; }
    void setMembers(const QVariantList &members)
    {
        const ZelValueChange change(this, "members");
        m_members = members;
    }
    void insertMember(qsizetype index, const QVariant &member)
    {
        ZelWillChangeValueForKey(this, ZelKeyValueChangeInsertion, {index}, "members");
        m_members.insert(index, member);
        ZelDidChangeValueForKey(this, ZelKeyValueChangeInsertion, {index}, "members");
    }
    QString title() const { return m_title; }
    /// Announces also what is no change.
    void setTitle(const QString &title)
    {
        const ZelValueChange change(this, "title");
        m_title = title;
    }

private:
    QVariantList m_members;
    QString m_title;
};
