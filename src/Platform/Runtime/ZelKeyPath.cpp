// SPDX-License-Identifier: MIT
#include "Platform/Runtime/ZelKeyPath.h"

#include "Platform/Runtime/ZelInternTable.h"

struct ZelKeyPath::Entry
{
    explicit Entry(const QString &text)
        : string(text)
    {
        const qsizetype dot = text.indexOf(u'.');
        first = ZelKey(dot < 0 ? text : text.left(dot));
        if (dot >= 0)
            rest = ZelKeyPath(text.mid(dot + 1));
    }
    QString string;
    ZelKey first;
    ZelKeyPath rest;
};

ZelKeyPath::ZelKeyPath(const QString &path)
{
    if (!path.isEmpty())
        m_entry = ZelInternTable<Entry>::intern(path);
}

const QString &ZelKeyPath::string() const
{
    static const QString none;
    return m_entry ? m_entry->string : none;
}

ZelKey ZelKeyPath::first() const
{
    return m_entry ? m_entry->first : ZelKey();
}

ZelKeyPath ZelKeyPath::rest() const
{
    return m_entry ? m_entry->rest : ZelKeyPath();
}
