// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// A person: a part of a site, which the inspector reaches through the site.
class Contact : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY changed)
    Q_PROPERTY(QString phone MEMBER m_phone NOTIFY changed)

Q_SIGNALS:
    void changed();

private:
    QString m_name;
    QString m_phone;
};
