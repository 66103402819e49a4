// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QObject>
#include <vector>

class ZelView;

/// The installed views whose constraints are to be updated before the next layout.
///
/// One queue and one posted event serve all views, since a posted event for each would cost more than the update.
class ZelConstraintUpdates : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    static ZelConstraintUpdates &instance();

    void schedule(ZelView *view);
    void cancel(ZelView *view);
    /// Updates what is scheduled, and what that schedules in turn. A view that schedules itself again and again is left
    /// for the next turn. Does nothing within another flush.
    void flush();

protected:
    bool handleEvent(QEvent *event) override;

private:
    class Run;
    std::vector<ZelView *> m_scheduled; // holes are null
    std::vector<ZelView *> m_running;
    bool m_posted = false;
    bool m_flushing = false;
};
