// SPDX-License-Identifier: MIT
#pragma once

#include "Observation/ZelDelayedInvocation.h"

/// Has a control look again whether it can be used, a tenth of a second after the user has done anything.
///
/// What the user did may have changed what the receivers of actions can do, and they need not say so. The delay comes
/// after the event's own work, and many events in a row cost one look.
class ZelDelayedValidation
{
public:
    /// The block is called as long as the validation lives.
    explicit ZelDelayedValidation(const std::function<void()> &validate);

    /// Schedule it for a look that does not wait for an event; cancel it when the control leaves its window.
    ZelDelayedInvocation &invocation() { return m_invocation; }
    /// Files the observation of the user's events with the owner. It lasts until the owner's observations for the
    /// context are removed, which must be before the validation dies.
    void observeEvents(QObject *owner, const void *context);

private:
    ZelDelayedInvocation m_invocation;
};
