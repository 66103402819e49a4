// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelException.h"

/// Why a file could not be read, and where in it.
struct ZelReadError
{
    QString message;
    ZelSourcePlace place;

    bool isSet() const { return !message.isNull(); }
    /// The message for people, without the place.
    const QString &localizedDescription() const { return message; }
};
