// SPDX-License-Identifier: MIT
#include "Core/KeyValue/private/ZelObservedKey.h"

#include "Core/Errors/private/ZelFirstException.h"
#include "Core/Errors/private/ZelMainThread.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelChangeDelivery.h"
#include "Core/KeyValue/private/ZelSilentKeys.h"
#include "Core/Values/ZelValues.h"

#include <algorithm>
#include <optional>

/// The values of a change at this key. The old value is the caller's; the new one is read once, when the first observer
/// asks for it.
class ZelObservedKey::Source : public ZelKeyValueChangeSource
{
public:
    Source(const ZelObservedKey &key, ZelKeyValueChangeKind kind, const ZelIndexSet *indexes, const ZelKeptValue &old)
        : m_key(key)
        , m_kind(kind)
        , m_indexes(indexes)
        , m_old(old)
    {
    }

    const QVariant &newValue() const override
    {
        if (!m_new && m_key.m_isOrphan)
            m_new.emplace();
        else if (!m_new)
            m_new = m_kind == ZelKeyValueChangeSetting   ? m_key.read()
                    : m_kind == ZelKeyValueChangeRemoval ? QVariant()
                                                         : m_key.elementsAt(*m_indexes);
        return *m_new;
    }
    const ZelKeptValue &oldValue() const override { return m_old; }
    void setNewValue(const QVariant &value) { m_new = value; }

private:
    bool areValuesDifferent() const override { return differ(m_old, newValue()); }

    const ZelObservedKey &m_key;
    ZelKeyValueChangeKind m_kind;
    const ZelIndexSet *m_indexes;
    const ZelKeptValue &m_old;
    mutable std::optional<QVariant> m_new; // nothing until it is read
};

ZelObservedKey::ZelObservedKey(QObject *object, ZelKey key)
    : m_object(object)
    , m_class(object->metaObject())
    , m_key(key)
    , m_path(key)
    , m_interface(ZelPropertyAccessor::interfaceOf(object))
{
}

ZelObservedKey::~ZelObservedKey()
{
    ZelSilentKeys::remove(this);
}

const ZelPropertyAccessor *ZelObservedKey::accessor() const
{
    if (!m_accessor && !m_interface)
        m_accessor = ZelPropertyAccessor::find(m_object, m_key);
    return m_accessor;
}

bool ZelObservedKey::isSilent() const
{
    return m_interface || (accessor() && accessor()->isSilent());
}

int ZelObservedKey::notifySignalIndex() const
{
    return accessor() ? accessor()->notifySignalIndex() : -1;
}

bool ZelObservedKey::isMeantBy(void **arguments) const
{
    return !accessor() || accessor()->isMeantBy(arguments);
}

QList<QEvent::Type> ZelObservedKey::notifyEvents() const
{
    return accessor() ? accessor()->notifyEvents() : QList<QEvent::Type>();
}

bool ZelObservedKey::isHeard() const
{
    return accessor() && !accessor()->isSilent();
}

QUntypedBindable ZelObservedKey::bindable() const
{
    return accessor() && accessor()->isBindable() ? accessor()->bindable(m_object) : QUntypedBindable();
}

/// Whether the property may still be read. While an object's destructors run, its class becomes one base after the
/// other, and what it was before must not be called any more. A class that has become a derived one is fine: the
/// observer came while constructors ran.
bool ZelObservedKey::isReadable() const
{
    const QMetaObject *present = m_object ? m_object->metaObject() : nullptr;
    if (present == m_class)
        return true;
    if (!present || m_class->inherits(present))
        return false;
    m_class = present;
    return true;
}

QVariant ZelObservedKey::read() const
{
    if (!isReadable())
        return {};
    if (m_interface)
        return ZelPresent(m_interface->valueForKeyPath(ZelKeyPath(m_key)));
    if (!accessor())
        return {};
    QVariant value = m_accessor->read(m_object);
    if (ZelIsAbsent(value))
        value.clear();
    return value;
}

QVariant ZelObservedKey::elementsAt(const ZelIndexSet &indexes) const
{
    const QVariantList list = ZelList(read());
    QVariantList elements;
    indexes.within(list.size()).forEach([&](qsizetype index) { elements.append(list.at(index)); });
    return elements;
}

void ZelObservedKey::add(const Registration &registration)
{
    m_registrations.push_back(registration);
    if (registration.options & ZelKeyValueObservingOptionOld)
        ++m_oldObservers;
    if (registration.options & ZelKeyValueObservingOptionPrior)
        ++m_priorObservers;
    if (++m_observers == 1)
        startObserving();
    if (!m_remembers && !m_announcesItself && (m_oldObservers > 0 || (m_accessor && isSilent())))
        rememberValue();
    else if (m_interface && registration.options & ZelKeyValueObservingOptionOld)
        (void)read(); // what it answers now is what it must answer during the notice before the next change
    if (registration.options & ZelKeyValueObservingOptionInitial) {
        const Hold hold(this);
        const ZelKeptValue none;
        const Source source(*this, ZelKeyValueChangeSetting, nullptr, none);
        const ZelKeyValueObservingOptions options = registration.options & ~ZelKeyValueObservingOptionOld;
        const ZelKeyValueChange change(ZelKeyValueChangeSetting, &source, options, nullptr, false);
        registration.observer->observeValueForKeyPath(registration.path, m_object, change, registration.context);
    }
}

bool ZelObservedKey::remove(ZelKeyValueObserver *observer, const ZelKeyPath &path, const void *context)
{
    const auto found = std::find_if(m_registrations.rbegin(), m_registrations.rend(), [&](const Registration &r) {
        return r.observer == observer && r.context == context && r.path == path;
    });
    if (found == m_registrations.rend())
        return false;
    if (found->options & ZelKeyValueObservingOptionOld)
        --m_oldObservers;
    if (found->options & ZelKeyValueObservingOptionPrior)
        --m_priorObservers;
    found->observer = nullptr;
    m_needsSweep = true;
    if (--m_observers == 0)
        stopObserving();
    if (m_holds == 0)
        sweep();
    return true;
}

void ZelObservedKey::startObserving()
{
    if (m_interface)
        m_interface->keyPathWillBeObserved(ZelKeyPath(m_key));
    if (isSilent() && (m_interface || !m_announcesItself))
        ZelSilentKeys::add(this);
}

void ZelObservedKey::stopObserving()
{
    m_remembers = false;
    m_last.clear();
    ZelSilentKeys::remove(this);
    if (m_interface && isReadable())
        m_interface->keyPathIsNoLongerObserved(ZelKeyPath(m_key));
}

void ZelObservedKey::rememberValue()
{
    m_remembers = true;
    m_last.keep(read());
}

void ZelObservedKey::deliver(ZelKeyValueChangeKind kind, const Source &source, const ZelIndexSet *indexes, bool isPrior)
{
    ZelKeyValueChange change(kind, &source, 0, indexes, isPrior);
    const size_t count = m_registrations.size(); // observers that come meanwhile do not get this change
    ZelChangeDelivery::run([&] {
        ZelFirstException failure;
        for (size_t i = 0; i < count && m_object && !m_isOrphan; ++i) {
            const Registration &registration = m_registrations[i];
            if (!registration.observer || (isPrior && !(registration.options & ZelKeyValueObservingOptionPrior)))
                continue;
            change.m_options = registration.options;
            failure.run(
                [&] { registration.observer->observeValueForKeyPath(m_path, m_object, change, registration.context); });
        }
        failure.rethrow();
    });
}

void ZelObservedKey::willChange(ZelKeyValueChangeKind kind, const ZelIndexSet *indexes, bool byObject)
{
    ZelRequireMainThread();
    if (byObject && !m_announcesItself)
        beginAnnouncing();
    if (beginsUnheard(byObject) || !isReadable())
        return;
    const Hold hold(this);
    const int announcement = ++m_announcements;
    if (m_oldObservers > 0) {
        ZelKeptValue old;
        old.keep(kind == ZelKeyValueChangeSetting     ? read()
                 : kind == ZelKeyValueChangeInsertion ? QVariant()
                                                      : elementsAt(*indexes));
        // Only now, and with its number: reading may have announced and ended changes of its own.
        m_pendingOld.push_back({announcement, std::move(old)});
    }
    if (m_priorObservers == 0)
        return;
    const ZelKeptValue old = m_pendingOld.empty() ? ZelKeptValue() : m_pendingOld.back().value;
    Source source(*this, kind, indexes, old);
    source.setNewValue({});
    deliver(kind, source, indexes, true);
}

/// Notes that the object announces changes. From now on no value needs to be remembered: the announcements bring the
/// old ones.
void ZelObservedKey::beginAnnouncing()
{
    m_announcesItself = true;
    m_remembers = false;
    m_last.clear();
    if (!m_interface) // the objects for which it answers may be silent all the same
        ZelSilentKeys::remove(this);
}

void ZelObservedKey::didChange(ZelKeyValueChangeKind kind, const ZelIndexSet *indexes, bool byObject)
{
    if (m_announcements == 0 || m_isOrphan)
        return;
    const Hold hold(this);
    static const ZelKeptValue &none = *new ZelKeptValue; // objects may outlive every static
    std::optional<ZelKeptValue> old;                     // most observers ask for none, and making one takes time
    if (!m_pendingOld.empty() && m_pendingOld.back().announcement == m_announcements) {
        old = std::move(m_pendingOld.back().value);
        m_pendingOld.pop_back();
    }
    --m_announcements;
    // If the setter has announced the change itself meanwhile, the announcement from outside would be a second one.
    if (!isObserved() || (!byObject && m_announcesItself) || !isReadable())
        return;
    Source source(*this, kind, indexes, old ? *old : none);
    if (m_remembers) {
        m_last.keep(read());
        if (kind == ZelKeyValueChangeSetting)
            source.setNewValue(m_last.value());
    }
    deliver(kind, source, indexes, false);
}

void ZelObservedKey::abandonChange()
{
    if (!m_pendingOld.empty() && m_pendingOld.back().announcement == m_announcements)
        m_pendingOld.pop_back();
    m_announcements = std::max(m_announcements - 1, 0);
}

void ZelObservedKey::notified()
{
    ZelRequireMainThread();
    if (!isObserved() || m_announcesItself || m_announcements > 0 || !isReadable())
        return;
    const Hold hold(this);
    ZelKeptValue old;
    std::swap(old, m_last);
    Source source(*this, ZelKeyValueChangeSetting, nullptr, old);
    ZelFirstException failure;
    if (m_priorObservers > 0)
        failure.run([&] { deliver(ZelKeyValueChangeSetting, source, nullptr, true); });
    if (m_remembers) {
        // The value is taken over before anybody is told of it, since an observer may cause the next change.
        m_last.keep(read());
        source.setNewValue(m_last.value());
    }
    failure.run([&] { deliver(ZelKeyValueChangeSetting, source, nullptr, false); });
    failure.rethrow();
}

/// Qt tells nobody a second time while it tells: what an observer changes meanwhile is told afterwards.
void ZelObservedKey::notifiedByBinding()
{
    constexpr int limit = 100; // two observers may disagree for ever
    const Hold hold(this);
    QVariant told;
    for (int i = 0; i < limit && isObserved() && !m_isOrphan && isReadable(); ++i) {
        const QVariant present = read();
        if (i > 0 && ZelEqual(told, present))
            return;
        told = present;
        notified();
    }
}

void ZelObservedKey::reread()
{
    if (!isObserved() || m_isOrphan || !isReadable())
        return;
    if (m_interface) {
        m_interface->rereadKeyPath(ZelKeyPath(m_key));
        return;
    }
    if (m_remembers && (m_last.hasDied() || ZelNotEqual(m_last.value(), read())))
        notified();
}

void ZelObservedKey::orphan()
{
    m_isOrphan = true;
    const Hold hold(this); // deletes the key unless a delivery still holds it
}

void ZelObservedKey::releaseLast()
{
    if (m_isOrphan)
        delete this;
    else
        sweep();
}

void ZelObservedKey::sweep()
{
    m_needsSweep = false;
    std::erase_if(m_registrations, [](const Registration &r) { return !r.observer; });
}
