// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelWindowDisplay.h"

#include <QWidget>

class QUndoStack;
class ZelUndoManager;

/// A top-level widget with a checkpoint before it paints (see ZelWindowDisplay) and an undo manager.
class ZelWindow : public QWidget
{
    Q_OBJECT
public:
    explicit ZelWindow(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::Window);

    /// Gives an application's own window the same checkpoint and, unless it has one, an undo manager. `widget` is the
    /// window or anything in it. Attaching twice changes nothing. Null for a null widget.
    static ZelWindowDisplay *attach(QWidget *widget);
    /// The same, with an undo manager for a stack of the application's.
    static ZelWindowDisplay *attach(QWidget *widget, QUndoStack *undoStack);

    ZelUndoManager *undoManager() const;

    void performBeforeDisplayUsingBlock(const std::function<void()> &block);
    void performDelayedBlocks();
    void displayIfNeeded();

private:
    ZelWindowDisplay *m_display;
};
