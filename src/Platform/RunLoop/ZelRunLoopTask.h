// SPDX-License-Identifier: MIT
#pragma once

#include <QExplicitlySharedDataPointer>
#include <QSharedData>

/// Work that a run loop performs. Requests for it keep it alive, also while it runs and its maker lets go of it.
class ZelRunLoopTask : public QSharedData
{
public:
    virtual ~ZelRunLoopTask() = default;
    virtual void perform() = 0;
    /// Asks a queued task whether it wants to run at the checkpoint of that number; numbers grow. Answers whether it
    /// ran.
    virtual bool performEarly(quint64 checkpoint)
    {
        Q_UNUSED(checkpoint);
        return false;
    }
};
using ZelRunLoopTaskPtr = QExplicitlySharedDataPointer<ZelRunLoopTask>;
