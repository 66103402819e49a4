// SPDX-License-Identifier: MIT
#pragma once

#include "Observation/ZelDelayedInvocation.h"

/// Makes a control check again whether it can be used, a tenth of a second after any event of the user.
///
/// What the user did may have changed what the receivers of actions can do, and they need not say so. Because of the
/// delay the check runs after the event's own work, and many events in a row cost one check.
class ZelDelayedValidation
{
public:
    /// The block makes the check. It is called only while the validation exists.
    explicit ZelDelayedValidation(const std::function<void()> &validate);

    /// Schedule this for a check without an event; cancel it when the control leaves its window.
    ZelDelayedInvocation &invocation() { return m_invocation; }
    /// Observes the user's events until the owner's observations for the context are removed. That must happen before
    /// the validation is destroyed.
    void observeEvents(QObject *owner, const void *context);

private:
    ZelDelayedInvocation m_invocation;
};
