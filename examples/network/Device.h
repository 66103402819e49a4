// SPDX-License-Identifier: MIT
#pragma once

#include "Node.h"

/// A machine with an address.
class Device : public Node
{
    Q_OBJECT
    Q_PROPERTY(Kind kind MEMBER m_kind NOTIFY changed)
    Q_PROPERTY(QString address MEMBER m_address NOTIFY changed)
    Q_PROPERTY(QString serialNumber MEMBER m_serialNumber CONSTANT)
    Q_PROPERTY(bool monitored MEMBER m_isMonitored NOTIFY changed)
    Q_PROPERTY(int alarmLevel MEMBER m_alarmLevel NOTIFY changed)
public:
    enum Kind { Router, Switch, Host };
    Q_ENUM(Kind)

    Device(const QString &name, Kind kind, const QString &address, const QString &serialNumber)
        : Node(name)
        , m_kind(kind)
        , m_address(address)
        , m_serialNumber(serialNumber)
    {
    }
    bool isDevice() const override { return true; }

    /// Why an address is not taken, as a text for people. The inspector asks before it writes.
    Q_INVOKABLE QString validateAddress(const QString &address) const
    {
        return address.contains(' ') ? tr("An address has no blanks.") : QString();
    }

private:
    Kind m_kind;
    QString m_address;
    QString m_serialNumber;
    bool m_isMonitored = true;
    int m_alarmLevel = 80; // per cent
};
