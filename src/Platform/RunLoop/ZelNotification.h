// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QVariantMap>

/// One posting: its name, its sender (null if there is none, or if it has died since) and what else it says.
struct ZelNotification
{
    QString name;
    QPointer<QObject> object;
    QVariantMap userInfo;
};
