// SPDX-License-Identifier: MIT
#include "Platform/Selection/ZelUndoManager.h"

#include "Platform/Runtime/ZelAssociatedObjects.h"
#include "Platform/Selection/ZelUndoGroupCommand.h"

#include <QScopedValueRollback>
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
    : QObject(parent)
    , m_stack(stack)
{
}

ZelUndoManager::~ZelUndoManager() = default;

void ZelUndoManager::beginUndoGrouping()
{
    if (m_level++ == 0)
        m_group = std::make_unique<ZelUndoGroupCommand>(*this);
}

void ZelUndoManager::endUndoGrouping()
{
    if (m_level == 0 || --m_level > 0)
        return;
    const std::unique_ptr<ZelUndoGroupCommand> group = std::move(m_group);
    const QString name = std::exchange(m_actionName, QString());
    if (!m_stack || !group || group->isEmpty())
        return;
    group->setText(name);
    m_stack->push(new ZelUndoGroupCommand(std::move(*group)));
}

bool ZelUndoManager::rollBackGrouping()
{
    if (m_level != 1 || !m_group || m_group->isEmpty())
        return false;
    const auto group = std::exchange(m_group, std::make_unique<ZelUndoGroupCommand>(*this));
    m_actionName.clear();
    group->undo();
    return true;
}

void ZelUndoManager::setActionName(const QString &name)
{
    m_actionName = name;
}

void ZelUndoManager::registerUndo(const std::function<void()> &undo, const std::function<void()> &redo)
{
    if (m_undoing)
        return;
    beginUndoGrouping();
    m_group->addWork(undo, redo);
    endUndoGrouping();
}

void ZelUndoManager::recordWrite(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path,
                                 ZelValueBlock oldValues, ZelValueBlock newValues)
{
    if (m_undoing || !m_recordsEdits || objects.isEmpty())
        return;
    beginUndoGrouping();
    m_group->addWrite(objects, path, std::move(oldValues), std::move(newValues));
    endUndoGrouping();
}

void ZelUndoManager::undo()
{
    if (m_stack)
        m_stack->undo();
}

void ZelUndoManager::redo()
{
    if (m_stack)
        m_stack->redo();
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
    if (m_manager)
        m_manager->endUndoGrouping();
}
