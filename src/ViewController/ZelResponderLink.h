// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QObject>
#include <QPointer>

/// The next responder that somebody has set; without one the parent view answers.
struct ZEL_EXPORT ZelResponderLink
{
    bool isSet = false;
    QPointer<QObject> responder;
};
