// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKey.h"

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/Values/private/ZelInternTable.h"

struct ZelKey::Entry
{
    explicit Entry(const QString &text)
        : string(text)
        , name(text.toUtf8())
        , path(text)
    {
    }
    QString string;
    QByteArray name;
    ZelKeyPath path;
};

ZelKey::ZelKey(const QString &name)
{
    if (!name.isEmpty())
        m_entry = ZelInternTable<Entry>::intern(name);
}

const QString &ZelKey::string() const
{
    static const QString none;
    return m_entry ? m_entry->string : none;
}

const QByteArray &ZelKey::name() const
{
    static const QByteArray none;
    return m_entry ? m_entry->name : none;
}

const ZelKeyPath &ZelKey::path() const
{
    static const ZelKeyPath none;
    return m_entry ? m_entry->path : none;
}
