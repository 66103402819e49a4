// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QObject>
#include <deque>
#include <functional>

class QWidget;

/// What a window does before it paints: it announces a checkpoint and runs the work that waits for it.
///
/// Just before a top-level widget paints what has become dirty, ZelWindowDisplayCheckpointNotification and then
/// ZelDelayedInvocationCheckpointNotification are posted with the window as sender, and the queued blocks run, so that
/// the frame shows what the model says. Painting caused from within a checkpoint does not make another one.
///
/// It belongs to its window, and is made by ZelWindow::attach.
class ZEL_EXPORT ZelWindowDisplay : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    /// The display of the widget's window; null if none was attached.
    static ZelWindowDisplay *of(const QWidget *widget);

    /// Queues a block for the next checkpoint. A block that is queued while the queue runs is part of the same pass.
    /// Asserts "block".
    void performBeforeDisplayUsingBlock(const std::function<void()> &block);
    /// Runs the queued blocks now. All of them run even if one throws; the first exception is raised then.
    void performDelayedBlocks();
    /// Makes the checkpoint, and paints what is dirty before it returns. What is thrown by observers and blocks is
    /// raised here; while a window paints by itself it goes to the exception reporter.
    void displayIfNeeded();

    bool filterEvent(QObject *watched, QEvent *event) override;

private:
    friend class ZelWindow;
    explicit ZelWindowDisplay(QWidget *window);
    bool checkpoint();

    QWidget *m_window;
    std::deque<std::function<void()>> m_delayedBlocks;
    bool m_inCheckpoint = false;
};
