// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QObject>
#include <QPointer>
#include <QVariantMap>

/// One notification: its name, its sender (null if it had none or the sender has died since) and further values.
struct ZEL_EXPORT ZelNotification
{
    QString name;
    QPointer<QObject> object;
    QVariantMap userInfo;
};
