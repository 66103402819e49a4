// SPDX-License-Identifier: MIT
#include "Controls/ZelResizableSegmentedControlView.h"

#include "Platform/Layout/ZelConstraintLayout.h"

ZelResizableSegmentedControlView::ZelResizableSegmentedControlView(QWidget *parent)
    : ZelGuarded(parent)
{
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
    if (m_segmentedControl) { // later: it may be the one whose click led here
        m_segmentedControl->setParent(nullptr);
        m_segmentedControl->deleteLater();
    }
    m_segmentedControl = control;
    if (!control)
        return;
    setSizePolicy(control->sizePolicy());
    control->setParent(this);
    control->show();
    // Constraints know where the control is going to be before it is there: rows align to its baseline.
    for (const char *format : {"H:|[control]|", "V:|[control]|"})
        ZelConstraintLayout::of(this)->addConstraints(ZelLayoutConstraint::constraintsWithVisualFormat(
            QString::fromLatin1(format), {{QStringLiteral("control"), control}}));
}

double ZelResizableSegmentedControlView::baselineOffsetForHeight(double height) const
{
    return m_segmentedControl ? m_segmentedControl->baselineOffsetForHeight(height) : height;
}
