// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"
#include "Platform/Runtime/ZelKeyPath.h"
#include "Platform/Selection/ZelValueBlock.h"

#include <QObject>
#include <QPointer>
#include <QUndoStack>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

class QWidget;
class ZelUndoGroupCommand;

/// Posted before a step is undone or redone, with the stack as sender: what is being typed is taken now.
inline const QString ZelUndoStepWillBeginNotification = QStringLiteral("ZelUndoStepWillBeginNotification");

/// Names and groups undo actions on a QUndoStack, its own or the application's.
///
/// What is registered while a grouping is open becomes one command, pushed when the outermost grouping ends; a grouping
/// in which nothing was registered leaves no command. Writes of editors and bindings are recorded with recordWrite, so
/// that undo brings every object's own old value back, also for plain objects that know nothing of undo. Objects that
/// have died since are skipped.
///
/// The steps may be undone and redone through the manager or through the stack, also when the manager is gone. What a
/// step throws goes to the exception reporter; the rest of it is done all the same. What is recorded while a step runs
/// belongs to that step, since nothing can be pushed then.
class ZelUndoManager : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    explicit ZelUndoManager(QObject *parent = nullptr);
    /// Uses the application's stack, which stays the application's.
    ZelUndoManager(QUndoStack *stack, QObject *parent);
    ~ZelUndoManager() override;

    QUndoStack *stack() const { return m_stack; }

    void beginUndoGrouping();
    void endUndoGrouping();
    int groupingLevel() const { return m_level; }
    /// Undoes and forgets what was registered in the open grouping, which stays open. Answers whether there was
    /// anything; nothing is done in a grouping within another.
    bool rollBackGrouping();

    /// The text of the open group's command, or of the next one; null or empty clears it.
    void setActionName(const QString &name);
    QString actionName() const { return m_actionName; }
    /// Names the edit that was just recorded: the open group or, where none is open, the step which the latest
    /// recordWrite has become. Never names a later step.
    void nameEdit(const QString &name);

    /// Whether writes of editors are recorded; true. Applications that register undo themselves switch it off.
    void setRecordsEdits(bool records) { m_recordsEdits = records; }
    bool recordsEdits() const { return m_recordsEdits; }
    /// Whether a step of the library's is being undone or redone on the stack, by whomever.
    bool isUndoing() const;

    /// Registers work that undoes and redoes something; outside a grouping it is a command of its own. What is
    /// registered while a step runs is dropped: the step does and undoes it itself.
    void registerUndo(const std::function<void()> &undo, const std::function<void()> &redo);
    /// Registers that the key path of these objects was changed from the old values to the new ones. Of several records
    /// of the same objects and path one after the other in a group, the first old values count.
    void recordWrite(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, ZelValueBlock oldValues,
                     ZelValueBlock newValues);

public Q_SLOTS:
    /// Takes what is being typed, which is a step of its own then, and undoes the last step. What is thrown meanwhile
    /// goes to the exception reporter.
    void undo();
    void redo();

public:
    /// The undo manager filed for the widget's window; null if it has none.
    static ZelUndoManager *forWidget(const QWidget *widget);
    static void setForWindow(QWidget *window, ZelUndoManager *manager);

private:
    void finishGroup(std::unique_ptr<ZelUndoGroupCommand> group);
    bool foreignStepMayRun() const;
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

/// Holds a grouping of an undo manager open; null is allowed. What others throw when the step is pushed goes to the
/// exception reporter.
class ZelUndoGrouping
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
