// SPDX-License-Identifier: MIT
#pragma once

/// Something that goes on until it is cancelled, once and for good.
class ZelCancellable
{
public:
    virtual void cancel() = 0;
    virtual bool isCancelled() const = 0;

protected:
    ~ZelCancellable() = default;
};
