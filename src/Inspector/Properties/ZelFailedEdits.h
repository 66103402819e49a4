// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/RunLoop/ZelNotificationCenter.h"

/// After an edit that failed, lets the editors that the control belongs to show the model's value again. There is one
/// for all editors, since a registration for each would cost every row something.
class ZelFailedEdits final : public ZelNotificationObserver
{
public:
    /// Begins to listen, the first time.
    static void listen();

    void observeNotification(const ZelNotification &notification) override;

private:
    ZelFailedEdits();
};
