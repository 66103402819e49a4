// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelWindowDisplay.h"
#include "Core/ZelExport.h"

#include <QWidget>

class QUndoStack;
class ZelUndoManager;

/// A top-level widget with a checkpoint before it paints (see ZelWindowDisplay) and an undo manager.
class ZEL_EXPORT ZelWindow : public QWidget
{
    Q_OBJECT
public:
    explicit ZelWindow(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::Window);

    /// Gives an application's own window the same checkpoint and, unless it has one, an undo manager. `widget` is the
    /// window or anything in it. Attaching twice changes nothing. Null for a null widget.
    static ZelWindowDisplay *attach(QWidget *widget);
    /// Does the same, with an undo manager for the application's own stack.
    static ZelWindowDisplay *attach(QWidget *widget, QUndoStack *undoStack);

    ZelUndoManager *undoManager() const;

    void performBeforeDisplayUsingBlock(const std::function<void()> &block);
    void performDelayedBlocks();
    void displayIfNeeded();

private:
    ZelWindowDisplay *m_display;
};
