// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/Selection/ZelValueBlock.h"
#include "Core/ZelExport.h"

#include <QObject>
#include <QPointer>
#include <QUndoStack>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

class QWidget;
class ZelUndoGroupCommand;

/// Posted before a step is undone or redone, with the stack as sender. Editors then take what is being typed.
inline const QString ZelUndoStepWillBeginNotification = QStringLiteral("ZelUndoStepWillBeginNotification");

/// Names and groups undo actions on a QUndoStack, its own or the application's.
///
/// What is registered while a grouping is open becomes one command, which is pushed when the outermost grouping ends; a
/// grouping in which nothing was registered leaves no command. Writes of editors and bindings are recorded with
/// recordWrite, so that undo brings back each object's own old value, even for plain objects that know nothing of undo.
/// Objects that have died since are skipped.
///
/// The steps may be undone and redone through the manager or the stack, even after the manager is gone. What a step
/// throws goes to the exception reporter; the rest of it is done all the same. Writes that are recorded while a step
/// runs belong to that step, since nothing can be pushed then.
class ZEL_EXPORT ZelUndoManager : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    explicit ZelUndoManager(QObject *parent = nullptr);
    /// Uses a stack that belongs to the application.
    ZelUndoManager(QUndoStack *stack, QObject *parent);
    ~ZelUndoManager() override;

    QUndoStack *stack() const { return m_stack; }

    void beginUndoGrouping();
    void endUndoGrouping();
    int groupingLevel() const { return m_level; }
    /// Undoes and forgets what was registered in the open grouping, which stays open. Answers whether there was
    /// anything. In a grouping within another it does nothing and answers false.
    bool rollBackGrouping();

    /// The text of the open group's command, or of the next one; null or empty clears it.
    void setActionName(const QString &name);
    QString actionName() const { return m_actionName; }
    /// Names the edit that was just recorded: the open group or, if none is open, the step that the latest recordWrite
    /// has become. Never names a later step.
    void nameEdit(const QString &name);

    /// Whether writes of editors are recorded, which they are by default. Applications that register undo themselves
    /// switch it off.
    void setRecordsEdits(bool records) { m_recordsEdits = records; }
    bool recordsEdits() const { return m_recordsEdits; }
    /// Whether one of the library's steps is being undone or redone, through the manager or the stack.
    bool isUndoing() const;

    /// Registers work that undoes and redoes something; outside a grouping it becomes a command of its own. Does
    /// nothing while a step runs, since the step itself repeats what is being done.
    void registerUndo(const std::function<void()> &undo, const std::function<void()> &redo);
    /// Registers that the values of these objects at the key path were changed from the old ones to the new ones.
    /// Successive records of the same objects and path in a group become one, with the first old values. Does nothing
    /// if edits are not recorded.
    void recordWrite(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, ZelValueBlock oldValues,
                     ZelValueBlock newValues);

public Q_SLOTS:
    /// Has what is being typed taken, which becomes a step of its own, and then undoes the last step. What is thrown
    /// meanwhile goes to the exception reporter.
    void undo();
    void redo();

public:
    /// The undo manager of the widget's window or, if that has none, of the nearest window around it that has one; null
    /// without any.
    static ZelUndoManager *forWidget(const QWidget *widget);
    static void setForWindow(QWidget *window, ZelUndoManager *manager);

private:
    void finishGroup(std::unique_ptr<ZelUndoGroupCommand> group);
    bool foreignStepMayRun() const;
    void pushLater(std::unique_ptr<ZelUndoGroupCommand> group);
    void pushLateGroups();
    void performStep(void (QUndoStack::*step)());
    void prepareStep();

    QPointer<QUndoStack> m_stack;
    int m_level = 0;
    bool m_recordsEdits = true;
    bool m_namesNext = false; // the name was given outside a grouping, for the next one
    QString m_actionName;
    std::unique_ptr<ZelUndoGroupCommand> m_group;
    std::vector<std::unique_ptr<ZelUndoGroupCommand>> m_late; // to be pushed when no step can be running
    quint64 m_lastEdit = 0;                                   // the group of the latest record, if it has no name
};

/// Holds a grouping of an undo manager open while it exists; the manager may be null. What others throw when the step
/// is pushed goes to the exception reporter.
class ZEL_EXPORT ZelUndoGrouping
{
public:
    explicit ZelUndoGrouping(ZelUndoManager *manager);
    explicit ZelUndoGrouping(const QWidget *widget)
        : ZelUndoGrouping(ZelUndoManager::forWidget(widget))
    {
    }
    ~ZelUndoGrouping();
    /// See ZelUndoManager::rollBackGrouping.
    bool rollBack() const { return m_manager && m_manager->rollBackGrouping(); }
    Q_DISABLE_COPY_MOVE(ZelUndoGrouping)

private:
    QPointer<ZelUndoManager> m_manager;
};
