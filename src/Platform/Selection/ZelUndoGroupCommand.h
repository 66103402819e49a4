// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Selection/ZelUndoManager.h"

#include <QUndoCommand>
#include <vector>

/// Everything that was registered in one grouping, as one command. What it does has been done when it is pushed.
class ZelUndoGroupCommand : public QUndoCommand
{
public:
    explicit ZelUndoGroupCommand(ZelUndoManager &manager)
        : m_manager(&manager)
    {
    }
    ZelUndoGroupCommand(ZelUndoGroupCommand &&other);

    bool isEmpty() const { return m_steps.empty(); }
    void addWork(const std::function<void()> &undo, const std::function<void()> &redo);
    void addWrite(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, ZelValueBlock oldValues,
                  ZelValueBlock newValues);

    void undo() override;
    void redo() override;

private:
    /// Either work, or a write of one path of some objects.
    struct Step
    {
        std::function<void()> undo;
        std::function<void()> redo;
        QList<QPointer<QObject>> objects;
        ZelKeyPath path;
        ZelValueBlock oldValues;
        ZelValueBlock newValues;
    };

    QPointer<ZelUndoManager> m_manager;
    std::vector<Step> m_steps;
    bool m_isDone = true; // false after undo
};
