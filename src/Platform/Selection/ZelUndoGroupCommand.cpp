// SPDX-License-Identifier: MIT
#include "Platform/Selection/ZelUndoGroupCommand.h"

#include "Platform/Runtime/ZelKeyValueObserving.h"

#include <QScopedValueRollback>

ZelUndoGroupCommand::ZelUndoGroupCommand(ZelUndoGroupCommand &&other)
    : QUndoCommand(other.text())
    , m_manager(other.m_manager)
    , m_steps(std::move(other.m_steps))
{
}

void ZelUndoGroupCommand::addWork(const std::function<void()> &undo, const std::function<void()> &redo)
{
    m_steps.push_back({undo, redo, {}, {}, {}, {}});
}

void ZelUndoGroupCommand::addWrite(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path,
                                   ZelValueBlock oldValues, ZelValueBlock newValues)
{
    for (Step &step : m_steps) {
        if (step.path == path && step.objects == objects) {
            step.newValues = std::move(newValues);
            return;
        }
    }
    m_steps.push_back({{}, {}, objects, path, std::move(oldValues), std::move(newValues)});
}

void ZelUndoGroupCommand::undo()
{
    m_isDone = false;
    bool ignored = false;
    const QScopedValueRollback undoing(m_manager ? m_manager->m_undoing : ignored, true);
    for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step) {
        if (step->undo)
            step->undo();
        else
            step->oldValues.write(step->objects, step->path);
    }
    ZelRereadSilentProperties();
}

void ZelUndoGroupCommand::redo()
{
    if (std::exchange(m_isDone, true))
        return; // pushed after the fact
    bool ignored = false;
    const QScopedValueRollback undoing(m_manager ? m_manager->m_undoing : ignored, true);
    for (const Step &step : m_steps) {
        if (step.redo)
            step.redo();
        else
            step.newValues.write(step.objects, step.path);
    }
    ZelRereadSilentProperties();
}
