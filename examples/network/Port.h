// SPDX-License-Identifier: MIT
#pragma once

#include "Node.h"

#include <QColor>
#include <QVariant>

/// A socket of a device.
class Port : public Node
{
    Q_OBJECT
    Q_PROPERTY(double speed MEMBER m_speed NOTIFY changed)
    Q_PROPERTY(bool enabled MEMBER m_isEnabled NOTIFY changed)
    Q_PROPERTY(QVariant vlan MEMBER m_vlan NOTIFY changed)
    Q_PROPERTY(QColor cable MEMBER m_cable NOTIFY changed)
public:
    Port(const QString &name, double speed)
        : Node(name)
        , m_speed(speed)
    {
    }
    bool isPort() const override { return true; }

private:
    double m_speed; // Gbit/s
    bool m_isEnabled = true;
    QVariant m_vlan; // a number, or nothing
    QColor m_cable = Qt::blue;
};
