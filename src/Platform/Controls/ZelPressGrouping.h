// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/RunLoop/ZelNotificationCenter.h"
#include "Platform/Selection/ZelUndoManager.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>

/// One undo step from the press of a mouse button on a control to its release. The control destroys this at the
/// release.
///
/// It calls `lost` where no release will come, since the mouse is taken away: the control is hidden or disabled, its
/// window is left, a pop-up opens, or another widget gets the mouse. So it does before a step of undo or redo begins.
/// The control then ends the press in the same way.
class ZelPressGrouping : public QObject, public ZelNotificationObserver
{
public:
    ZelPressGrouping(QWidget *control, const std::function<void()> &lost);
    ~ZelPressGrouping() override;

    /// See ZelUndoManager::rollBackGrouping.
    bool rollBack() const { return m_grouping->rollBack(); }

    bool eventFilter(QObject *watched, QEvent *event) override;
    void observeNotification(const ZelNotification &notification) override;

private:
    bool takesMouse(QObject *watched, const QEvent *event) const;

    QPointer<QWidget> m_control;
    std::function<void()> m_lost;
    std::optional<ZelUndoGrouping> m_grouping;
    bool m_isEnded = false; // by the user
};
