// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelException.h"
#include "Core/ZelExport.h"

/// Why a file could not be read, and where in it.
struct ZEL_EXPORT ZelReadError
{
    QString message;
    ZelSourcePlace place;

    bool isSet() const { return !message.isNull(); }
    /// The message for people, without the place.
    const QString &localizedDescription() const { return message; }
};
