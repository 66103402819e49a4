// SPDX-License-Identifier: MIT
#include "Core/Undo/ZelUndoManager.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/KeyValue/ZelAssociatedObjects.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/RunLoop/ZelPassiveEdits.h"
#include "Core/Undo/private/ZelUndoGroupCommand.h"

#include <QThread>
#include <QWidget>

namespace {
const char g_managerKey = 0;
}

ZelUndoManager::ZelUndoManager(QObject *parent)
    : ZelUndoManager(nullptr, parent)
{
    m_stack = new QUndoStack(this);
}

ZelUndoManager::ZelUndoManager(QUndoStack *stack, QObject *parent)
    : ZelGuarded(parent)
    , m_stack(stack)
{
}

ZelUndoManager::~ZelUndoManager()
{
    ZelExceptionReporter::run(this, [this] { pushLateGroups(); });
}

// Grouping

void ZelUndoManager::beginUndoGrouping()
{
    if (m_level++ > 0)
        return;
    m_group = std::make_unique<ZelUndoGroupCommand>(m_stack);
    m_lastEdit = 0;
    if (!m_namesNext)
        m_actionName.clear();
}

void ZelUndoManager::endUndoGrouping()
{
    if (m_level == 0 || --m_level > 0)
        return;
    std::unique_ptr<ZelUndoGroupCommand> group = std::move(m_group);
    const QString name = std::exchange(m_actionName, QString());
    m_namesNext = false;
    if (!m_stack || !group || group->isEmpty())
        return;
    group->setText(name);
    finishGroup(std::move(group));
}

bool ZelUndoManager::rollBackGrouping()
{
    if (m_level != 1 || !m_group || m_group->isEmpty())
        return false;
    const auto group = std::exchange(m_group, std::make_unique<ZelUndoGroupCommand>(m_stack));
    m_actionName.clear();
    group->undo();
    return true;
}

void ZelUndoManager::finishGroup(std::unique_ptr<ZelUndoGroupCommand> group)
{
    if (ZelUndoGroupCommand *running = ZelUndoGroupCommand::running(m_stack)) {
        running->addMeanwhile(std::move(*group));
    } else if (ZelPassiveEdits::isActive() && foreignStepMayRun()) {
        pushLater(std::move(group));
    } else {
        pushLateGroups();
        if (m_stack)
            m_stack->push(group.release());
    }
}

/// Whether the stack may be running one of the application's own commands. A stack does not tell, and breaks if
/// something is pushed then. A group that a passive edit made therefore waits until such a step has certainly ended.
bool ZelUndoManager::foreignStepMayRun() const
{
    const auto isForeign = [this](int index) {
        const QUndoCommand *command = m_stack->command(index); // null outside of the stack
        return command && !dynamic_cast<const ZelUndoGroupCommand *>(command);
    };
    return m_stack && (isForeign(m_stack->index() - 1) || isForeign(m_stack->index()));
}

/// Pushes the group when the stack tells of its new index, at the latest when control is back in the event loop that
/// runs now. A queued call would come too early if the command processes events itself; the deletion of an object waits
/// until such nested processing has ended.
void ZelUndoManager::pushLater(std::unique_ptr<ZelUndoGroupCommand> group)
{
    m_late.push_back(std::move(group));
    connect(m_stack, &QUndoStack::indexChanged, this, &ZelUndoManager::pushLateGroups, Qt::UniqueConnection);
    if (QThread::currentThread()->loopLevel() == 0) { // no object is deleted later then
        QMetaObject::invokeMethod(this, &ZelUndoManager::pushLateGroups, Qt::QueuedConnection);
        return;
    }
    auto *turn = new QObject(this);
    connect(turn, &QObject::destroyed, this, [this] { ZelExceptionReporter::run(this, [this] { pushLateGroups(); }); });
    turn->deleteLater();
}

void ZelUndoManager::pushLateGroups()
{
    for (auto &group : std::exchange(m_late, {})) { // emptied first, since pushing emits indexChanged, which leads here
        if (m_stack)
            m_stack->push(group.release());
    }
}

// Names

void ZelUndoManager::setActionName(const QString &name)
{
    m_actionName = name;
    m_lastEdit = 0;
    m_namesNext = m_level == 0;
}

void ZelUndoManager::nameEdit(const QString &name)
{
    m_actionName = name;
    const quint64 number = std::exchange(m_lastEdit, 0);
    if (m_level > 0)
        return;
    m_namesNext = false;
    const auto isEdit = [number](const ZelUndoGroupCommand *group) { return group && group->number() == number; };
    if (!m_late.empty() && isEdit(m_late.back().get())) {
        m_late.back()->setText(name);
        return;
    }
    const QUndoCommand *last = m_stack ? m_stack->command(m_stack->index() - 1) : nullptr;
    if (!isEdit(dynamic_cast<const ZelUndoGroupCommand *>(last)))
        return;
    const_cast<QUndoCommand *>(last)->setText(name);
    Q_EMIT m_stack->undoTextChanged(m_stack->undoText());
}

// Recording

void ZelUndoManager::registerUndo(const std::function<void()> &undo, const std::function<void()> &redo)
{
    if (isUndoing())
        return;
    beginUndoGrouping();
    m_group->addWork(undo, redo);
    endUndoGrouping();
}

void ZelUndoManager::recordWrite(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path,
                                 ZelValueBlock oldValues, ZelValueBlock newValues)
{
    if (!m_recordsEdits || objects.isEmpty())
        return;
    beginUndoGrouping();
    m_group->addWrite(objects, path, std::move(oldValues), std::move(newValues));
    m_lastEdit = m_group->number();
    endUndoGrouping();
}

// Undoing

bool ZelUndoManager::isUndoing() const
{
    return ZelUndoGroupCommand::running(m_stack);
}

void ZelUndoManager::undo()
{
    performStep(&QUndoStack::undo);
}

void ZelUndoManager::redo()
{
    performStep(&QUndoStack::redo);
}

/// Reports what is thrown: shortcuts and menus call this, and nobody would catch it.
void ZelUndoManager::performStep(void (QUndoStack::*step)())
{
    const QPointer<QUndoStack> stack = m_stack; // this may be gone after what was being typed is taken
    ZelExceptionReporter::run(this, [&] { prepareStep(); });
    if (stack)
        ZelExceptionReporter::run(stack, [&] { (stack->*step)(); });
}

void ZelUndoManager::prepareStep()
{
    pushLateGroups();
    ZelNotificationCenter::defaultCenter()->post(ZelUndoStepWillBeginNotification, m_stack);
    pushLateGroups();
}

ZelUndoManager *ZelUndoManager::forWidget(const QWidget *widget)
{
    if (!widget)
        return nullptr;
    // A pop-up or dialog uses the manager of the window that it belongs to.
    for (const QWidget *window = widget->window(); window;
         window = window->parentWidget() ? window->parentWidget()->window() : nullptr) {
        const auto filed = ZelAssociatedObjects(const_cast<QWidget *>(window)).associatedValueForKey(&g_managerKey);
        if (filed)
            return *std::static_pointer_cast<QPointer<ZelUndoManager>>(filed);
    }
    return nullptr;
}

void ZelUndoManager::setForWindow(QWidget *window, ZelUndoManager *manager)
{
    std::shared_ptr<void> filed;
    if (manager)
        filed = std::make_shared<QPointer<ZelUndoManager>>(manager);
    ZelAssociatedObjects(window).setAssociateValue(filed, &g_managerKey);
}

ZelUndoGrouping::ZelUndoGrouping(ZelUndoManager *manager)
    : m_manager(manager)
{
    if (m_manager)
        m_manager->beginUndoGrouping();
}

ZelUndoGrouping::~ZelUndoGrouping()
{
    ZelExceptionReporter::run(m_manager, [this] {
        if (m_manager)
            m_manager->endUndoGrouping();
    });
}
