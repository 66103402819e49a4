// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

/// Something that goes on until it is cancelled, once and for good.
class ZEL_EXPORT ZelCancellable
{
public:
    virtual void cancel() = 0;
    virtual bool isCancelled() const = 0;

protected:
    ~ZelCancellable() = default;
};
