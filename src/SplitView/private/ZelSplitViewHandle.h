// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "SplitView/ZelSplitView.h"

/// A divider of a ZelSplitView.
class ZelSplitViewHandle : public ZelGuarded<QSplitterHandle>
{
    Q_OBJECT
public:
    ZelSplitViewHandle(Qt::Orientation orientation, ZelSplitView *splitView)
        : ZelGuarded(orientation, splitView)
    {
    }

protected:
    void paintEvent(QPaintEvent *event) override;
};
