// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QMetaType>
#include <QObject>
#include <QString>

/// The name of a method that is invoked later on some object: a public slot or Q_INVOKABLE that the object's classes
/// below QObject declare, with no argument or with the sender (a QObject *). Trailing colons are ignored.
class ZEL_EXPORT ZelSelector
{
public:
    ZelSelector() = default;
    ZelSelector(const QString &name)
        : m_name(name)
    {
    }
    ZelSelector(const char *name)
        : m_name(QString::fromUtf8(name))
    {
    }

    bool isNull() const { return m_name.isEmpty(); }
    const QString &name() const { return m_name; }

    /// Whether the object has such a method.
    bool canPerform(const QObject *target) const;
    /// Invokes the method; the sender is passed where the method takes one. Without such a method: the log line
    /// "ERROR: ...", and false. Does nothing for a null target or selector.
    bool perform(QObject *target, QObject *sender = nullptr) const;

    friend bool operator==(const ZelSelector &, const ZelSelector &) = default;

private:
    QString m_name;
};
Q_DECLARE_METATYPE(ZelSelector)
