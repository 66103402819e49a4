// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKeyPath.h"
#include "Platform/Selection/ZelValueBlock.h"

#include <QObject>
#include <QPointer>
#include <QUndoStack>
#include <QVariant>
#include <functional>
#include <memory>

class QWidget;
class ZelUndoGroupCommand;

/// Names and groups undo actions on a QUndoStack, its own or the application's.
///
/// What is registered while a grouping is open becomes one command, pushed when the outermost grouping ends; a grouping
/// in which nothing was registered leaves no command. Writes of editors and bindings are recorded with recordWrite, so
/// that undo brings every object's own old value back, also for plain objects that know nothing of undo. Objects that
/// have died since are skipped.
class ZelUndoManager : public QObject
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

    /// Whether writes of editors are recorded; true. Applications that register undo themselves switch it off.
    void setRecordsEdits(bool records) { m_recordsEdits = records; }
    bool recordsEdits() const { return m_recordsEdits; }
    bool isUndoing() const { return m_undoing; }

    /// Registers work that undoes and redoes something; outside a grouping it is a command of its own.
    void registerUndo(const std::function<void()> &undo, const std::function<void()> &redo);
    /// Registers that the key path of these objects was changed from the old values to the new ones. A second record of
    /// the same objects and path in one group keeps the first old values.
    void recordWrite(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, ZelValueBlock oldValues,
                     ZelValueBlock newValues);

public Q_SLOTS:
    void undo();
    void redo();

public:
    /// The undo manager filed for the widget's window; null if it has none.
    static ZelUndoManager *forWidget(const QWidget *widget);
    static void setForWindow(QWidget *window, ZelUndoManager *manager);

private:
    friend class ZelUndoGroupCommand;
    QPointer<QUndoStack> m_stack;
    int m_level = 0;
    bool m_recordsEdits = true;
    bool m_undoing = false;
    QString m_actionName;
    std::unique_ptr<ZelUndoGroupCommand> m_group;
};

/// Holds a grouping of an undo manager open; null is allowed.
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
