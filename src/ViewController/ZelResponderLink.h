// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

/// The next responder that somebody has set; without one the parent view answers.
struct ZelResponderLink
{
    bool isSet = false;
    QPointer<QObject> responder;
};
