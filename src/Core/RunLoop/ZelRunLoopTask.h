// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QExplicitlySharedDataPointer>
#include <QSharedData>

/// Work that a run loop performs. Its requests keep it alive, even if its maker lets go of it while it runs.
class ZEL_EXPORT ZelRunLoopTask : public QSharedData
{
public:
    virtual ~ZelRunLoopTask() = default;
    virtual void perform() = 0;
    /// Whether the task only shows what is there. Tasks of that kind that follow each other share what they read of a
    /// selection.
    virtual bool onlyReads() const { return false; }
    /// Asks a queued task whether it wants to run at the checkpoint of that number; numbers grow. Answers whether it
    /// ran.
    virtual bool performEarly(quint64 checkpoint)
    {
        Q_UNUSED(checkpoint);
        return false;
    }
};
using ZelRunLoopTaskPtr = QExplicitlySharedDataPointer<ZelRunLoopTask>;
