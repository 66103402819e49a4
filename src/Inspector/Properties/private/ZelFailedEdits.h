// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelNotificationCenter.h"

/// After an edit that failed, makes the editors that contain the control show the model's value again. One object
/// serves all editors, since a registration for each would make every row cost more.
class ZelFailedEdits final : public ZelNotificationObserver
{
public:
    /// Begins to listen, the first time.
    static void listen();

    void observeNotification(const ZelNotification &notification) override;

private:
    ZelFailedEdits();
};
