// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/Undo/ZelUndoManager.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>

/// Makes one undo step of everything from the press of a mouse button on a control to its release. The control destroys
/// this object at the release.
///
/// It calls `lost` when the mouse is taken away, so that no release will come: the control is hidden or disabled, its
/// window is left, a pop-up opens, or another widget gets the mouse. It also calls `lost` before a step of undo or redo
/// begins. The control must then end the press as at a release.
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
    bool m_isEnded = false; // the user has ended the press
};
