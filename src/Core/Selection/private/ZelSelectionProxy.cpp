// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelSelectionProxy.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/KeyValue/private/ZelChangeDelivery.h"
#include "Core/KeyValue/private/ZelObjectRecord.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/RunLoop/private/ZelReadingScope.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Selection/private/ZelSelectionFold.h"
#include "Core/Selection/private/ZelSelectionRelay.h"
#include "Core/Values/ZelValues.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QScopedValueRollback>
#include <QSet>
#include <QTimerEvent>

#include <algorithm>

namespace {
const QEvent::Type g_flushEvent = QEvent::Type(QEvent::registerEventType());
constexpr int g_columnLife = 200; // milliseconds, in which a drag has gone on

/// All living proxies. The list is never deleted, since some may outlive every static.
QList<ZelSelectionProxy *> &allProxies()
{
    static auto *proxies = new QList<ZelSelectionProxy *>;
    return *proxies;
}

} // namespace

ZelSelectionProxy::ZelSelectionProxy(ZelObjectController &controller)
    : m_controller(controller)
    , m_deaths(std::make_unique<ZelSelectionRelay>(*this, ZelKeyPath()))
{
    allProxies().append(this);
}

ZelSelectionProxy::~ZelSelectionProxy()
{
    allProxies().removeOne(this);
}

bool ZelSelectionProxy::setObjects(const QList<QPointer<QObject>> &objects)
{
    if (objects == m_objects)
        return false;
    const QPointer<ZelSelectionProxy> alive(this);
    const QList<ZelKeyPath> paths = m_paths.keys();
    ZelFirstException failure; // if one observer throws, the others must still hear of the new selection
    for (const ZelKeyPath &path : paths) {
        failure.run([&] { noticeBefore(path); });
        if (!alive) {
            failure.rethrow();
            return false;
        }
    }
    m_objects = objects;
    m_hasDead = false;
    invalidate();
    m_deaths->setObjects(m_objects);
    for (const auto &path : std::as_const(m_paths))
        listen(*path);
    connectSlices();
    const ZelReadingScope reading;
    const ZelMemberScope selecting(this, m_isSelecting, true);
    for (const ZelKeyPath &path : paths) {
        if (const auto known = m_paths.value(path)) {
            known->isDirty = false;
            failure.run([&] { readForAnnouncement(*known, path); });
        }
        failure.run([&] { ZelDidChangeValueForKey(this, ZelKey(path.string())); });
        if (!alive)
            break;
    }
    failure.rethrow();
    return bool(alive);
}

const QList<QPointer<QObject>> &ZelSelectionProxy::objectsOfEachClass() const
{
    if (!m_objectsOfEachClass.isEmpty())
        return m_objectsOfEachClass;
    QSet<const QMetaObject *> classes;
    const QMetaObject *last = nullptr; // most selections have one class
    for (const QPointer<QObject> &object : m_objects) {
        if (!object || object->metaObject() == last)
            continue;
        last = object->metaObject();
        if (!classes.contains(last))
            m_objectsOfEachClass.append(object);
        classes.insert(last);
    }
    return m_objectsOfEachClass;
}

void ZelSelectionProxy::invalidate()
{
    m_objectsOfEachClass.clear();
    for (const auto &path : std::as_const(m_paths))
        path->forget();
}

bool ZelSelectionProxy::Path::hearsAll() const
{
    return !isSilent && relay->isComplete();
}

bool ZelSelectionProxy::Path::isFresh(quint64 readingScope) const
{
    return isKnown && !value.hasDied() && (hearsAll() || (readingScope != 0 && scope == readingScope));
}

QVariant ZelSelectionProxy::valueForKeyPath(const ZelKeyPath &path) const
{
    const auto known = m_paths.value(path);
    if (!known)
        return ZelSelectionFold::value(m_objects, path);
    if (known->answersOld && known->isAnnounced)
        return known->announced.value();
    known->isReadAtOnce = known->isReadAtOnce || (m_isSelecting && m_objects.size() > ZelSelectionRelay::sliceSize);
    const quint64 scope = ZelReadingScope::current();
    if (scope != 0 && m_objects.size() > ZelSelectionRelay::sliceSize && !known->isFresh(scope) && path.isSingleKey()) {
        const QPointer<const ZelSelectionProxy> alive(this);
        readTogether(scope);
        if (!alive)
            return known->value.value();
    }
    if (!known->isFresh(scope)) {
        known->isKnown = true; // set before reading: a getter may cause a change, which clears it
        known->scope = scope;
        known->value.keep(ZelSelectionFold::value(m_objects, path));
    }
    if (!std::exchange(known->isAnnounced, true))
        known->announced = known->value;
    return known->value.value();
}

/// Reads the values of all observed keys that are not known in this reading scope. Whoever asks for one in it is about
/// to ask for the others; while a selection is being announced, only for those that are asked for at once.
void ZelSelectionProxy::readTogether(quint64 scope) const
{
    std::vector<ZelSelectionFold::Reading> readings;
    std::vector<std::pair<std::shared_ptr<Path>, quint64>> paths; // with the changes of which each had heard before
    for (auto entry = m_paths.cbegin(); entry != m_paths.cend(); ++entry) {
        const std::shared_ptr<Path> &path = entry.value();
        if (!entry.key().isSingleKey() || path->isFresh(scope) || path->triedIn == scope ||
            (m_isSelecting && !path->isReadAtOnce))
            continue;
        path->triedIn = scope;
        readings.push_back({entry.key().first(), path->observer});
        paths.emplace_back(path, path->changes);
    }
    if (readings.size() < 2)
        return;
    const std::vector<std::optional<QVariant>> values = ZelSelectionFold::values(m_objects, readings);
    for (size_t i = 0; i < values.size(); ++i) {
        Path &path = *paths[i].first;
        if (!values[i] || path.changes != paths[i].second)
            continue;
        path.isKnown = true;
        path.scope = scope;
        path.value.keep(*values[i]);
    }
}

/// Reads what observers are going to be told of. For a large selection this is left to the first of them who asks,
/// unless one wants to know the former value at the next change.
void ZelSelectionProxy::readForAnnouncement(Path &path, const ZelKeyPath &keyPath) const
{
    path.isAnnounced = false;
    const ZelObservedKey *observed = ZelObjectRecord::observedKey(this, ZelKey(keyPath.string()));
    if (m_objects.size() <= ZelSelectionRelay::sliceSize || (observed && observed->wantsOldValues()))
        (void)valueForObservers(path, keyPath);
}

QVariant ZelSelectionProxy::valueForObservers(const Path &path, const ZelKeyPath &keyPath) const
{
    const ZelPlaceScope scope(path.observer);
    return valueForKeyPath(keyPath);
}

void ZelSelectionProxy::setValueForKeyPath(const QVariant &value, const ZelKeyPath &path)
{
    const ZelObjectController::ChangeBatch batch(&m_controller, path);
    ZelSelectionFold::setValue(m_objects, value, path);
}

std::shared_ptr<const quint64> ZelSelectionProxy::changesAt(const ZelKeyPath &path) const
{
    const auto known = m_paths.value(path);
    return known && known->hearsAll() ? std::shared_ptr<const quint64>(known, &known->changes) : nullptr;
}

void ZelSelectionProxy::noteColumn(const ZelKeyPath &path, ZelValueBlock column)
{
    const auto known = m_paths.value(path);
    if (!known || !known->hearsAll() || column.size() != m_objects.size())
        return;
    known->column = std::move(column);
    known->changesAtColumn = known->changes;
    const std::optional<QVariant> whole = std::as_const(known->column).commonValue();
    known->isKnown = bool(whole);
    if (whole)
        known->value.keep(*whole);
    m_forgetColumns.start(g_columnLife, this);
}

void ZelSelectionProxy::forgetColumns()
{
    m_forgetColumns.stop();
    for (const auto &path : std::as_const(m_paths))
        path->column = {};
}

ZelValueBlock *ZelSelectionProxy::notedColumn(const ZelKeyPath &path) const
{
    const auto known = m_paths.value(path);
    const bool isValid = known && known->column.size() > 0 && known->changesAtColumn == known->changes;
    return isValid && known->hearsAll() ? &known->column : nullptr;
}

void ZelSelectionProxy::keyPathWillBeObserved(const ZelKeyPath &path)
{
    const auto added = std::make_shared<Path>();
    added->observer = ZelPlaceScope::currentObject();
    added->relay = std::make_unique<ZelSelectionRelay>(*this, path);
    m_paths.insert(path, added);
    m_lastChanged = nullptr;
    listen(*added);
    added->isSilent = ZelSelectionFold::isSilent(m_objects, path);
    readForAnnouncement(*added, path);
    connectSlices();
}

void ZelSelectionProxy::keyPathIsNoLongerObserved(const ZelKeyPath &path)
{
    m_lastChanged = nullptr;
    m_paths.remove(path);
}

void ZelSelectionProxy::listen(Path &path)
{
    path.relay->setObjects(m_objects);
}

/// Goes on connecting while the application is idle.
void ZelSelectionProxy::connectSlices()
{
    bool isComplete = m_deaths->isComplete();
    for (const auto &path : std::as_const(m_paths))
        isComplete = isComplete && path->relay->isComplete();
    if (isComplete)
        m_idle.stop();
    else if (!m_idle.isActive())
        m_idle.start(0, this);
}

bool ZelSelectionProxy::handleEvent(QEvent *event)
{
    if (event->type() == g_flushEvent) {
        m_isFlushPosted = false;
        flush();
        return true;
    }
    const int timer = event->type() == QEvent::Timer ? static_cast<QTimerEvent *>(event)->timerId() : 0;
    if (timer != 0 && timer == m_idle.timerId())
        goOnConnecting();
    else if (timer != 0 && timer == m_forgetColumns.timerId())
        forgetColumns();
    else
        return QObject::event(event);
    return true;
}

void ZelSelectionProxy::goOnConnecting()
{
    const QPointer<ZelSelectionProxy> alive(this);
    QElapsedTimer timer;
    timer.start();
    while (alive && connectSlice() && timer.elapsed() < 1) {
    }
    if (alive)
        connectSlices();
}

/// Connects the next slice of the deaths, or else of a key path, and then announces what was not heard before. Answers
/// whether there was anything to connect.
bool ZelSelectionProxy::connectSlice()
{
    if (!m_deaths->isComplete()) {
        m_deaths->connectSlice();
        return true;
    }
    const auto isComplete = [](const std::shared_ptr<Path> &path) { return path->relay->isComplete(); };
    const auto found = std::find_if_not(m_paths.cbegin(), m_paths.cend(), isComplete);
    if (found == m_paths.cend())
        return false;
    const ZelKeyPath keyPath = found.key();
    const std::shared_ptr<Path> path = found.value();
    path->relay->connectSlice();
    if (path->relay->isComplete()) {
        path->isSilent = ZelSelectionFold::isSilent(m_objects, keyPath);
        path->forget();
        rereadKeyPath(keyPath);
    }
    return true;
}

void ZelSelectionProxy::rereadKeyPath(const ZelKeyPath &path)
{
    const auto known = m_paths.value(path);
    if (known && !known->isDirty && hasUnannounced(*known, path))
        announce(path); // a dirty path is announced anyway, and read then
}

bool ZelSelectionProxy::hasUnannounced(const Path &path, const ZelKeyPath &keyPath) const
{
    const bool isAnnounced = path.isAnnounced; // otherwise reading makes it so
    const QVariant value = valueForObservers(path, keyPath);
    return isAnnounced && (path.announced.hasDied() || ZelNotEqual(value, path.announced.value()));
}

void ZelSelectionProxy::visitObjects(const ZelKeyPath &path, const ObjectVisitor &visitor) const
{
    // One object of a class tells everything about its own keys, but not about what lies behind them.
    const QList<QPointer<QObject>> objects = path.isSingleKey() ? objectsOfEachClass() : m_objects;
    for (const QPointer<QObject> &object : objects) {
        if (object)
            visitor(object, path);
    }
}

void ZelSelectionProxy::objectChanged(const ZelKeyPath &path)
{
    if (isChangeOwed(path))
        return;
    const auto known = m_paths.value(path);
    if (!known)
        return;
    m_lastChanged = known.get();
    m_lastChangedPath = path;
    known->forget();
    if (m_batches == 0 && m_objects.size() <= immediateLimit) {
        try {
            announce(path);
        } catch (...) {
            tellOthers(this, path);
            throw;
        }
        return;
    }
    known->isDirty = true;
    noticeOwed();
}

/// Tells the others of a change when an observer of one selection has thrown. The exception ends the signal that a
/// setter is emitting, so that other paths and selections that listen to it would not hear of the change. The selection
/// that was told may be gone.
void ZelSelectionProxy::tellOthers(const ZelSelectionProxy *told, const ZelKeyPath &path)
{
    const QList<ZelSelectionProxy *> all = allProxies();
    const QList<QPointer<ZelSelectionProxy>> proxies(all.begin(), all.end());
    for (const QPointer<ZelSelectionProxy> &proxy : proxies) {
        const QList<ZelKeyPath> paths = proxy ? proxy->m_paths.keys() : QList<ZelKeyPath>();
        for (const ZelKeyPath &other : paths) {
            const auto known = proxy ? proxy->m_paths.value(other) : nullptr;
            if (!known || (proxy == told && other == path))
                continue;
            known->forget();
            ZelExceptionReporter::run(nullptr, [&] { proxy->rereadKeyPath(other); });
        }
    }
}

void ZelSelectionProxy::willWrite(const ZelKeyPath &path)
{
    if (const auto known = m_paths.value(path))
        known->column = {};
}

void ZelSelectionProxy::didWrite(const ZelKeyPath &path)
{
    if (!notedColumn(path))
        return objectChanged(path);
    m_paths.value(path)->isDirty = true;
    noticeOwed();
}

void ZelSelectionProxy::objectDied(const QObject *object)
{
    m_hasDead = true;
    invalidate();
    if (m_batches > 0 || m_objects.size() > immediateLimit)
        return noticeOwed();
    for (QPointer<QObject> &held : m_objects) {
        if (held == object)
            held.clear(); // a widget tells of its death before weak pointers to it are null
    }
    flush();
}

void ZelSelectionProxy::noticeOwed()
{
    if (m_batches > 0 || std::exchange(m_isFlushPosted, true))
        return;
    QCoreApplication::postEvent(this, new QEvent(g_flushEvent), Qt::HighEventPriority);
}

void ZelSelectionProxy::endBatch()
{
    if (--m_batches == 0)
        flush();
}

/// Delivers the notice before a change. Meanwhile the path answers the value that observers know, even if an object has
/// died since.
void ZelSelectionProxy::noticeBefore(const ZelKeyPath &path)
{
    const std::shared_ptr<Path> known = m_paths.value(path);
    if (!known)
        return;
    const QScopedValueRollback old(known->answersOld, true);
    ZelWillChangeValueForKey(this, ZelKey(path.string()));
}

void ZelSelectionProxy::announce(const ZelKeyPath &path)
{
    const std::shared_ptr<Path> known = m_paths.value(path);
    if (!known)
        return;
    known->isDirty = false;
    const ZelKey key(path.string());
    const QPointer<ZelSelectionProxy> alive(this);
    ZelFirstException failure;
    failure.run([&] { noticeBefore(path); });
    if (alive)
        failure.run([&] { readForAnnouncement(*known, path); });
    if (alive)
        failure.run([&] { ZelDidChangeValueForKey(this, key); });
    failure.rethrow();
}

void ZelSelectionProxy::flush()
{
    const QPointer<ZelSelectionProxy> alive(this);
    ZelFirstException failure;
    if (m_hasDead)
        failure.run([this] { dropDead(); });
    const auto paths = alive ? m_paths : QHash<ZelKeyPath, std::shared_ptr<Path>>();
    ZelChangeDelivery::run([&] {
        for (auto entry = paths.begin(); alive && entry != paths.end(); ++entry) {
            if (entry.value()->isDirty)
                failure.run([&] { announce(entry.key()); });
        }
        failure.rethrow();
    });
}

void ZelSelectionProxy::dropDead()
{
    m_hasDead = false;
    QList<QPointer<QObject>> living = m_objects;
    living.removeIf([](const QPointer<QObject> &object) { return object.isNull(); });
    m_controller.replaceSelection(living);
}
