// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Cells/ZelSegmentedControl.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "Layout/ZelBaselineProvider.h"

#include <QPointer>
#include <QWidget>

/// Holds a segmented control that is always as large as the view, and wants the size that the control wants.
class ZEL_EXPORT ZelResizableSegmentedControlView : public ZelGuarded<QWidget>, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider)
public:
    explicit ZelResizableSegmentedControlView(QWidget *parent = nullptr);
    explicit ZelResizableSegmentedControlView(ZelSegmentedControl *control, QWidget *parent = nullptr);

    ZelSegmentedControl *segmentedControl() const { return m_segmentedControl; }
    /// Takes the control as a child; null leaves the view empty. The former control leaves the view at once and is
    /// deleted in the next turn of the event loop.
    void setSegmentedControl(ZelSegmentedControl *control);

    double baselineOffsetForHeight(double height) const override;

private:
    QPointer<ZelSegmentedControl> m_segmentedControl;
};
