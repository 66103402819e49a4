// SPDX-License-Identifier: MIT
#pragma once

#include "SplitView/ZelSplitView.h"

/// A divider of a ZelSplitView.
class ZelSplitViewHandle : public QSplitterHandle
{
    Q_OBJECT
public:
    ZelSplitViewHandle(Qt::Orientation orientation, ZelSplitView *splitView)
        : QSplitterHandle(orientation, splitView)
    {
    }

protected:
    void paintEvent(QPaintEvent *event) override;
};
