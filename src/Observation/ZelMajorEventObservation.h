// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelEventMonitor.h"
#include "Core/ZelExport.h"
#include "Observation/ZelObservation.h"

/// Calls a block at every input of the user that may have changed something: buttons and keys going down and up,
/// modifiers, drags with another button, the end of a gesture. The event goes its way afterwards.
class ZEL_EXPORT ZelMajorEventObservation final : public ZelObservation
{
public:
    using Block = std::function<void(ZelMajorEventObservation *, QEvent *)>;
    static constexpr quint32 eventMask =
        ZelEventMaskLeftMouseDown | ZelEventMaskLeftMouseUp | ZelEventMaskRightMouseDown | ZelEventMaskRightMouseUp |
        ZelEventMaskKeyDown | ZelEventMaskKeyUp | ZelEventMaskFlagsChanged | ZelEventMaskEndGesture |
        ZelEventMaskOtherMouseDown | ZelEventMaskOtherMouseUp | ZelEventMaskOtherMouseDragged;

    /// Starts to observe. Asserts "block"; null without one.
    static QSharedPointer<ZelMajorEventObservation> observationWithBlock(Block block);
    QString description() const override { return title("ZelMajorEventObservation"); }

private:
    friend class ZelObservation;
    explicit ZelMajorEventObservation(Block block);
    void observeEvent(QEvent *event);
    void start() override;
    void stop() override { m_monitor.reset(); }
    void dropCallback() override { m_block = nullptr; }

    Block m_block;
    std::unique_ptr<ZelEventMonitor> m_monitor;
};
