// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelSourcePlace.h"
#include "Core/Undo/ZelUndoManager.h"

#include <QUndoCommand>
#include <vector>

/// Everything that was registered in one grouping, as one command. It is pushed after the fact: the work has been done.
///
/// It needs no manager, and neither undo nor redo throws: what a setter throws is reported with the name of the step
/// and the place of the element on whose behalf it was recorded. While it runs on its stack, writes that are recorded
/// for the stack become part of it, so that undoing and redoing it still lead from one exact state to the other.
class ZelUndoGroupCommand : public QUndoCommand
{
public:
    explicit ZelUndoGroupCommand(QUndoStack *stack);

    /// The step that runs on the stack, the innermost of several; null if none does.
    static ZelUndoGroupCommand *running(const QUndoStack *stack);

    bool isEmpty() const { return m_steps.empty(); }
    quint64 number() const { return m_number; }
    void addWork(const std::function<void()> &undo, const std::function<void()> &redo);
    void addWrite(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, ZelValueBlock oldValues,
                  ZelValueBlock newValues);
    /// Adds what was written while this command runs.
    void addMeanwhile(ZelUndoGroupCommand &&group);

    void undo() override;
    void redo() override;
    /// A stack joins neighbours of one burst.
    int id() const override { return m_burst == 0 ? -1 : 1; }
    bool mergeWith(const QUndoCommand *later) override;

private:
    class Running;

    /// Either work, or a write of one path of some objects.
    struct Step
    {
        std::function<void()> undo;
        std::function<void()> redo;
        QList<QPointer<QObject>> objects;
        ZelKeyPath path;
        ZelValueBlock oldValues;
        ZelValueBlock newValues;

        bool isWrite() const { return !undo && !redo; }
        bool writesSame(const Step &other) const
        {
            return isWrite() && other.isWrite() && path == other.path && objects == other.objects;
        }
        void perform(bool undoes) const;
        void readOldValues();
        Step inverted() &&;
    };

    void run(bool undoes);
    void takeTyping(bool undoes);
    void performSteps(bool undoes);
    void outdateLaterSteps() const;
    void record(Step &&step);
    void append(Step &&step);
    void prepend(Step &&step);

    QPointer<QUndoStack> m_stack;
    ZelSourcePlace m_place; // of the work that recorded the first step
    quint64 m_number;
    quint64 m_burst; // of edits that follow each other quickly; 0 for none
    std::vector<Step> m_steps;
    std::vector<Step> m_meanwhile; // written while this runs
    bool m_isDone = true;          // false after undo
    bool m_isOutdated = false;     // an earlier step has changed, so the old values must be read again
};
