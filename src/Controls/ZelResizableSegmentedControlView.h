// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelSegmentedControl.h"
#include "Platform/Layout/ZelBaselineProvider.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QPointer>
#include <QWidget>

/// Holds a segmented control that is always as large as the view, and wants the size that the control wants.
class ZelResizableSegmentedControlView : public ZelGuarded<QWidget>, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider)
public:
    explicit ZelResizableSegmentedControlView(QWidget *parent = nullptr);
    explicit ZelResizableSegmentedControlView(ZelSegmentedControl *control, QWidget *parent = nullptr);

    ZelSegmentedControl *segmentedControl() const { return m_segmentedControl; }
    /// Takes the control as a child; null for none. One that is replaced goes at once, and is deleted in the next turn.
    void setSegmentedControl(ZelSegmentedControl *control);

    double baselineOffsetForHeight(double height) const override;

private:
    QPointer<ZelSegmentedControl> m_segmentedControl;
};
