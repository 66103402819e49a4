// SPDX-License-Identifier: MIT
#include "Controls/ZelResizableSegmentedControlView.h"

#include <QHBoxLayout>

ZelResizableSegmentedControlView::ZelResizableSegmentedControlView(QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
}

ZelResizableSegmentedControlView::ZelResizableSegmentedControlView(ZelSegmentedControl *control, QWidget *parent)
    : ZelResizableSegmentedControlView(parent)
{
    setSegmentedControl(control);
}

void ZelResizableSegmentedControlView::setSegmentedControl(ZelSegmentedControl *control)
{
    if (control == m_segmentedControl)
        return;
    delete m_segmentedControl;
    m_segmentedControl = control;
    if (!control)
        return;
    setSizePolicy(control->sizePolicy());
    layout()->addWidget(control);
}

double ZelResizableSegmentedControlView::baselineOffsetForHeight(double height) const
{
    return m_segmentedControl ? m_segmentedControl->baselineOffsetForHeight(height) : height;
}
