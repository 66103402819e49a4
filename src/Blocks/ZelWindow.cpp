// SPDX-License-Identifier: MIT
#include "Blocks/ZelWindow.h"

#include "Core/Undo/ZelUndoManager.h"

ZelWindow::ZelWindow(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags | Qt::Window)
    , m_display(attach(this))
{
}

ZelWindowDisplay *ZelWindow::attach(QWidget *widget)
{
    if (!widget)
        return nullptr;
    QWidget *window = widget->window();
    if (!ZelUndoManager::forWidget(window))
        ZelUndoManager::setForWindow(window, new ZelUndoManager(window));
    ZelWindowDisplay *display = ZelWindowDisplay::of(window);
    return display ? display : new ZelWindowDisplay(window);
}

ZelWindowDisplay *ZelWindow::attach(QWidget *widget, QUndoStack *undoStack)
{
    if (widget && undoStack)
        ZelUndoManager::setForWindow(widget->window(), new ZelUndoManager(undoStack, widget->window()));
    return attach(widget);
}

ZelUndoManager *ZelWindow::undoManager() const
{
    return ZelUndoManager::forWidget(this);
}

void ZelWindow::performBeforeDisplayUsingBlock(const std::function<void()> &block)
{
    m_display->performBeforeDisplayUsingBlock(block);
}

void ZelWindow::performDelayedBlocks()
{
    m_display->performDelayedBlocks();
}

void ZelWindow::displayIfNeeded()
{
    m_display->displayIfNeeded();
}
