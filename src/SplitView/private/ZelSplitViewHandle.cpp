// SPDX-License-Identifier: MIT
#include "SplitView/private/ZelSplitViewHandle.h"

#include <QPainter>

void ZelSplitViewHandle::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(contentsRect(), static_cast<ZelSplitView *>(splitter())->dividerColor());
}
