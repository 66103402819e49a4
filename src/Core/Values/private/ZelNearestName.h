// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

/// The known name that was probably meant by an unknown one: few letters are wrong, missing, too many or exchanged, or
/// only the case differs.
class ZelNearestName
{
public:
    /// The text of the unknown name has to live as long as this object.
    explicit ZelNearestName(QStringView name)
        : m_name(name)
    {
    }
    void offer(QStringView known);
    template<typename Names> void offerAll(const Names &names)
    {
        for (const auto &name : names)
            offer(name);
    }

    /// Null if no name is near enough.
    const QString &found() const { return m_found; }
    /// The end of a message, which asks whether that name was meant; null if no name is near enough.
    QString question() const { return question(m_found); }
    static QString question(const QString &name);
    /// The end of a message that tells all names where there are few; empty otherwise.
    static QString choices(const QStringList &names);
    /// The question, or all names if none is near enough.
    QString questionOr(const QStringList &names) const { return m_found.isNull() ? choices(names) : question(); }
    bool differsInCaseOnly() const { return m_distance == 0; }

private:
    QStringView m_name;
    QString m_found;
    qsizetype m_distance = 3;
};
