// SPDX-License-Identifier: MIT
#pragma once

#include "Contact.h"
#include "Node.h"

/// A place where devices stand, and whom to call there.
class Site : public Node
{
    Q_OBJECT
    Q_PROPERTY(QString city MEMBER m_city NOTIFY changed)
    Q_PROPERTY(Contact *contact READ contact CONSTANT)
public:
    Site(const QString &name, const QString &city)
        : Node(name)
        , m_city(city)
    {
    }
    bool isSite() const override { return true; }
    Contact *contact() { return &m_contact; }

private:
    QString m_city;
    Contact m_contact;
};
