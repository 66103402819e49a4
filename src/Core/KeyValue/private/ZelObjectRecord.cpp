// SPDX-License-Identifier: MIT
#include "Core/KeyValue/private/ZelObjectRecord.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Errors/private/ZelMainThread.h"
#include "Core/Errors/private/ZelScopeEnd.h"
#include "Core/KeyValue/ZelAssociatedObjects.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelKeyPathChain.h"
#include "Core/KeyValue/private/ZelNotifyRelay.h"
#include "Core/KeyValue/private/ZelSignalReceiver.h"
#include "Core/KeyValue/private/ZelSilentKeys.h"

#include <QHash>
#include <QThread>
#include <algorithm>
#include <array>

/// Finds the records, and ends them with their objects. It is the one receiver of the `destroyed` signals of all
/// objects.
class ZelObjectRecordTable : public ZelSignalReceiver
{
public:
    static ZelObjectRecordTable &instance()
    {
        static auto *table = new ZelObjectRecordTable; // objects may outlive every static
        return *table;
    }

    ZelObjectRecord *find(const QObject *object)
    {
        if (QThread::currentThreadId() != m_thread) // where a model is filled before it comes to the main thread
            return m_records.value(object);
        Slot &slot = slotFor(object);
        if (slot.object != object)
            slot = {object, m_records.value(object)};
        return slot.record;
    }

    ZelObjectRecord &of(QObject *object)
    {
        if (!m_thread)
            m_thread = QThread::currentThreadId(); // the main one, to which everything observed belongs
        if (ZelObjectRecord *record = find(object))
            return *record;
        auto *record = new ZelObjectRecord(object);
        m_records.insert(object, record);
        slotFor(object) = {object, record};
        static const int destroyed = QMetaMethod::fromSignal(&QObject::destroyed).methodIndex();
        listenTo(object, destroyed);
        return *record;
    }

    void end(const QObject *object)
    {
        slotFor(object) = {};
        delete m_records.take(object);
    }

private:
    /// What was found last, with or without a record: a setter asks for the same few objects again and again.
    struct Slot
    {
        const QObject *object = nullptr;
        ZelObjectRecord *record = nullptr;
    };
    Slot &slotFor(const QObject *object) { return m_slots[(quintptr(object) >> 4) % m_slots.size()]; }

    void heard(int, void **arguments) override { ZelObjectRecord::end(*static_cast<QObject **>(arguments[1])); }

    QHash<const QObject *, ZelObjectRecord *> m_records;
    std::array<Slot, 256> m_slots;
    Qt::HANDLE m_thread = nullptr; // that may use them; null until there is a record
};

ZelObjectRecord *ZelObjectRecord::find(const QObject *object)
{
    return ZelObjectRecordTable::instance().find(object);
}

ZelObjectRecord &ZelObjectRecord::of(QObject *object)
{
    return ZelObjectRecordTable::instance().of(object);
}

void ZelObjectRecord::end(const QObject *object) noexcept
{
    ZelExceptionReporter::run(nullptr, [object] { ZelObjectRecordTable::instance().end(object); });
}

ZelObservedKey *ZelObjectRecord::observedKey(const QObject *object, ZelKey key)
{
    const ZelObjectRecord *record = find(object);
    return record ? record->observedKey(key) : nullptr;
}

bool ZelObjectRecord::announcesItself(const QObject *object, ZelKey key)
{
    const ZelObservedKey *observed = observedKey(object, key);
    return observed && observed->announcesItself();
}

ZelObjectRecord::ZelObjectRecord(QObject *object)
    : m_object(object)
{
}

ZelObjectRecord::~ZelObjectRecord()
{
    // The lists are emptied first: whoever is told of an end may remove observers from this record.
    for (const auto &chain : std::exchange(m_chains, {}))
        chain->stop();
    for (ZelObservedKey *key : std::exchange(m_keys, {}))
        key->orphan();
    m_associated.clear();
}

void ZelObjectRecord::addObserver(const ZelObservedKey::Registration &registration)
{
    const bool takesPaths = ZelPropertyAccessor::interfaceOf(m_object);
    if (takesPaths || registration.path.isSingleKey()) {
        addKeyObserver(registration, ZelKey(registration.path.string()));
        return;
    }
    const auto chain = std::make_shared<ZelKeyPathChain>(m_object, registration.observer, registration.path,
                                                         registration.options, registration.context);
    m_chains.push_back(chain);
    chain->start();
}

void ZelObjectRecord::removeObserver(ZelKeyValueObserver *observer, const ZelKeyPath &path, const void *context)
{
    const auto chain = std::find_if(m_chains.rbegin(), m_chains.rend(),
                                    [&](const auto &c) { return c->isFor(observer, path, context); });
    if (chain == m_chains.rend()) {
        removeKeyObserver(observer, path, context, ZelKey(path.string()));
        return;
    }
    const std::shared_ptr<ZelKeyPathChain> found = *chain;
    m_chains.erase(std::next(chain).base());
    found->stop();
}

void ZelObjectRecord::addKeyObserver(const ZelObservedKey::Registration &registration, ZelKey key)
{
    ZelObservedKey *observed = observedKey(key);
    if (!observed) {
        observed = new ZelObservedKey(m_object, key);
        m_keys.push_back(observed);
    }
    if (!observed->isObserved() && observed->isHeard()) {
        if (!m_relay)
            m_relay = std::make_unique<ZelNotifyRelay>(*this);
        m_relay->listen(*observed);
    }
    observed->add(registration);
}

void ZelObjectRecord::removeKeyObserver(ZelKeyValueObserver *observer, const ZelKeyPath &path, const void *context,
                                        ZelKey key)
{
    ZelObservedKey *observed = observedKey(key);
    if (observed && observed->remove(observer, path, context) && !observed->isObserved() && m_relay)
        m_relay->stopListening(*observed);
}

std::shared_ptr<void> ZelObjectRecord::associatedValue(const void *key) const
{
    for (const auto &[known, value] : m_associated) {
        if (known == key)
            return value;
    }
    return {};
}

void ZelObjectRecord::setAssociatedValue(const std::shared_ptr<void> &value, const void *key)
{
    const auto known =
        std::find_if(m_associated.begin(), m_associated.end(), [&](const auto &e) { return e.first == key; });
    if (known == m_associated.end()) {
        if (value)
            m_associated.emplace_back(key, value);
        return;
    }
    const std::shared_ptr<void> former = known->second; // it must not die, and call back, while the table is changed
    if (value)
        known->second = value;
    else
        m_associated.erase(known);
}

ZelValueChange::ZelValueChange(QObject *object, ZelKey key, bool byObject)
    : m_observed(ZelObjectRecord::observedKey(object, key))
    , m_byObject(byObject)
{
    if (!m_observed)
        return;
    ZelRequireMainThread();
    m_uncaught = std::uncaught_exceptions();
    if (m_observed->beginsUnheard(byObject)) {
        m_observed->retain();
        return;
    }
    const ZelObservedKey::Hold hold(m_observed);
    try {
        m_observed->willChange(ZelKeyValueChangeSetting, nullptr, byObject);
    } catch (...) {
        m_observed->abandonChange(); // the destructor, which would end the announcement, will not run
        throw;
    }
    m_observed->retain();
}

ZelValueChange::ZelValueChange(QObject *object, ZelKey key)
    : ZelValueChange(object, key, true)
{
}

ZelValueChange::~ZelValueChange() noexcept(false)
{
    if (!m_observed)
        return;
    const ZelObservedKey::Hold hold(m_observed);
    m_observed->release();
    ZelRunAtScopeEnd([this] { m_observed->didChange(ZelKeyValueChangeSetting, nullptr, m_byObject); }, m_uncaught);
}

void ZelAssociatedObjects::setAssociateValue(const std::shared_ptr<void> &value, const void *key)
{
    if (!m_object || (!value && !ZelObjectRecord::find(m_object)))
        return;
    ZelObjectRecord::of(m_object).setAssociatedValue(value, key);
}

std::shared_ptr<void> ZelAssociatedObjects::associatedValueForKey(const void *key) const
{
    const ZelObjectRecord *record = m_object ? ZelObjectRecord::find(m_object) : nullptr;
    return record ? record->associatedValue(key) : std::shared_ptr<void>();
}
