// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelObjectController.h"

#include "Core/Errors/private/ZelFirstException.h"
#include "Core/Errors/private/ZelScopeEnd.h"
#include "Core/Selection/private/ZelSelectionProxy.h"

#include <QMutex>
#include <QSet>
#include <QThread>

#include <algorithm>
#include <functional>

namespace {

/// The controllers of all threads. The list is never deleted, since a controller may outlive every static.
struct Living
{
    QMutex mutex;
    QList<ZelObjectController *> controllers;

    static Living &instance()
    {
        static auto *living = new Living;
        return *living;
    }
};

QList<QPointer<ZelObjectController>> controllersOfThisThread()
{
    Living &living = Living::instance();
    const QMutexLocker lock(&living.mutex);
    QList<QPointer<ZelObjectController>> found;
    for (ZelObjectController *controller : std::as_const(living.controllers)) {
        if (controller->thread() == QThread::currentThread())
            found.append(controller);
    }
    return found;
}

/// Whether the objects are none of them null, and each lies behind the one before it in memory, as objects often do
/// that were made one after the other. Then none is repeated.
bool isAscending(const QList<QObject *> &objects)
{
    const auto isNotBefore = [](const QObject *a, const QObject *b) { return !std::less<>()(a, b); };
    return !objects.isEmpty() && objects.first() &&
           std::adjacent_find(objects.begin(), objects.end(), isNotBefore) == objects.end();
}

} // namespace

ZelObjectController::ZelObjectController(QObject *parent)
    : QObject(parent)
    , m_proxy(std::make_unique<ZelSelectionProxy>(*this))
{
    Living &living = Living::instance();
    const QMutexLocker lock(&living.mutex);
    living.controllers.append(this);
}

ZelObjectController::~ZelObjectController()
{
    Living &living = Living::instance();
    const QMutexLocker lock(&living.mutex);
    living.controllers.removeOne(this);
}

QObject *ZelObjectController::selection() const
{
    return m_proxy.get();
}

QList<QObject *> ZelObjectController::selectedObjects() const
{
    QList<QObject *> objects;
    objects.reserve(m_proxy->objects().size());
    for (const QPointer<QObject> &object : m_proxy->objects()) {
        if (object)
            objects.append(object);
    }
    return objects;
}

qsizetype ZelObjectController::selectedCount() const
{
    return std::count_if(m_proxy->objects().begin(), m_proxy->objects().end(),
                         [](const QPointer<QObject> &object) { return !object.isNull(); });
}

const QList<QPointer<QObject>> &ZelObjectController::heldObjects() const
{
    return m_proxy->objects();
}

void ZelObjectController::setSelectedObjects(const QList<QObject *> &objects)
{
    QList<QPointer<QObject>> selected;
    selected.reserve(objects.size());
    if (isAscending(objects)) {
        for (QObject *object : objects)
            selected.append(object);
    } else {
        QSet<const QObject *> seen;
        seen.reserve(objects.size());
        for (QObject *object : objects) {
            const qsizetype before = seen.size();
            seen.insert(object);
            if (object && seen.size() > before)
                selected.append(object);
        }
    }
    replaceSelection(selected);
}

void ZelObjectController::replaceSelection(const QList<QPointer<QObject>> &objects)
{
    if (objects == m_proxy->objects())
        return;
    const QPointer<ZelObjectController> alive(this);
    ZelFirstException failure; // whatever is thrown on the way, the objects get selected and everybody hears of it
    failure.run([this] { Q_EMIT selectionWillChange(); });
    bool isNew = alive && objects != m_proxy->objects();
    if (isNew)
        failure.run([&] { isNew = m_proxy->setObjects(objects); });
    if (isNew && alive)
        failure.run([this] { Q_EMIT selectionChanged(); });
    failure.rethrow();
}

void ZelObjectController::batchChanges(const std::function<void()> &work)
{
    const QList<QPointer<ZelObjectController>> controllers = controllersOfThisThread();
    for (const QPointer<ZelObjectController> &controller : controllers)
        controller->m_proxy->beginBatch();
    ZelFirstException errors;
    errors.run(work);
    for (const QPointer<ZelObjectController> &controller : controllers) {
        if (controller)
            errors.run([&] { controller->m_proxy->endBatch(); });
    }
    errors.rethrow();
}

ZelObjectController::ChangeBatch::ChangeBatch(ZelObjectController *controller, const ZelKeyPath &written)
    : m_controller(controller)
    , m_written(written)
    , m_uncaught(std::uncaught_exceptions())
{
    if (!m_controller)
        return;
    m_controller->m_proxy->beginBatch();
    m_controller->m_proxy->willWrite(m_written);
}

ZelObjectController::ChangeBatch::~ChangeBatch() noexcept(false)
{
    if (!m_controller)
        return;
    if (!m_written.isEmpty())
        m_controller->m_proxy->didWrite(m_written);
    ZelRunAtScopeEnd([this] { m_controller->m_proxy->endBatch(); }, m_uncaught);
}
