// SPDX-License-Identifier: MIT
#include "Controls/Cells/ZelResizableSegmentedControlView.h"

#include "Layout/ZelConstraintLayout.h"

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
    if (m_segmentedControl) { // not at once: a click on it may have led here
        m_segmentedControl->setParent(nullptr);
        m_segmentedControl->deleteLater();
    }
    m_segmentedControl = control;
    if (!control)
        return;
    setSizePolicy(control->sizePolicy());
    control->setParent(this);
    control->show();
    // The control is placed by constraints, because rows that align to its baseline must know its place before it is
    // laid out.
    for (const char *format : {"H:|[control]|", "V:|[control]|"})
        ZelConstraintLayout::of(this)->addConstraints(ZelLayoutConstraint::constraintsWithVisualFormat(
            QString::fromLatin1(format), {{QStringLiteral("control"), control}}));
}

double ZelResizableSegmentedControlView::baselineOffsetForHeight(double height) const
{
    return m_segmentedControl ? m_segmentedControl->baselineOffsetForHeight(height) : height;
}
