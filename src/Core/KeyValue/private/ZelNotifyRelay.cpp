// SPDX-License-Identifier: MIT
#include "Core/KeyValue/private/ZelNotifyRelay.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/private/ZelChangeDelivery.h"
#include "Core/KeyValue/private/ZelObjectRecord.h"

#include <QDynamicPropertyChangeEvent>

namespace {

/// Tells the keys of a record that a change concerns. They are held, because the record and the relay may die
/// meanwhile; the first one is told before anything can happen, and holds itself.
template<typename Concerns> void notifyKeys(const ZelObjectRecord &record, Concerns concerns)
{
    struct Held
    {
        ZelObservedKey *key;
        ZelObservedKey::Hold hold;
        explicit Held(ZelObservedKey *k)
            : key(k)
            , hold(k)
        {
        }
    };
    ZelObservedKey *first = nullptr;
    std::vector<std::unique_ptr<Held>> others;
    for (ZelObservedKey *key : record.observedKeys()) {
        if (!key->isObserved() || !concerns(*key))
            continue;
        if (!first)
            first = key;
        else
            others.push_back(std::make_unique<Held>(key));
    }
    if (!first)
        return;
    if (others.empty()) {
        first->notified();
        return;
    }
    ZelChangeDelivery::run([&] {
        ZelFirstException failure;
        failure.run([first] { first->notified(); });
        for (const auto &held : others)
            failure.run([&held] { held->key->notified(); });
        failure.rethrow();
    });
}

} // namespace

/// Qt's bindings must not be left by an exception. The relay may be deleted by an observer, and the notifier with it.
void ZelNotifyRelay::listenToBinding(ZelObservedKey &key)
{
    QUntypedBindable bindable = key.bindable();
    if (!bindable.isValid())
        return;
    const auto tell = [observed = &key, object = QPointer<QObject>(m_record.object())] {
        ZelObservedKey *const told = observed;
        ZelExceptionReporter::run(object, [told] { told->notifiedByBinding(); });
    };
    m_notifiers.emplace_back(&key, std::make_unique<QPropertyNotifier>(bindable.addNotifier(tell)));
}

void ZelNotifyRelay::listen(ZelObservedKey &key)
{
    if (!key.notifyEvents().isEmpty() && m_eventUses++ == 0)
        m_record.object()->installEventFilter(this);
    const int index = key.notifySignalIndex();
    if (index < 0) {
        listenToBinding(key);
        return;
    }
    auto place = std::find_if(m_signals.begin(), m_signals.end(), [&](const Signal &s) { return s.index == index; });
    if (place == m_signals.end()) {
        place = std::find_if(m_signals.begin(), m_signals.end(), [](const Signal &s) { return s.index < 0; });
        if (place == m_signals.end())
            place = m_signals.insert(place, Signal());
        place->index = index;
        place->connection = listenTo(m_record.object(), index, int(place - m_signals.begin()));
    }
    ++place->uses;
}

void ZelNotifyRelay::stopListening(const ZelObservedKey &key)
{
    if (!key.notifyEvents().isEmpty() && --m_eventUses == 0)
        m_record.object()->removeEventFilter(this);
    std::erase_if(m_notifiers, [&](const auto &notifier) { return notifier.first == &key; });
    const int index = key.notifySignalIndex();
    for (Signal &signal : m_signals) {
        if (index < 0 || signal.index != index || --signal.uses > 0)
            continue;
        disconnect(signal.connection);
        signal = Signal();
    }
}

void ZelNotifyRelay::heard(int number, void **arguments)
{
    const int index = m_signals[size_t(number)].index;
    if (index < 0)
        return;
    notifyKeys(m_record,
               [=](const ZelObservedKey &key) { return key.notifySignalIndex() == index && key.isMeantBy(arguments); });
}

bool ZelNotifyRelay::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_record.object())
        return false;
    const QEvent::Type type = event->type();
    // This event is sent from within QObject::setProperty, so that what observers throw may reach the caller of that.
    if (type == QEvent::DynamicPropertyChange) {
        const QByteArray name = static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName();
        notifyKeys(m_record, [&](const ZelObservedKey &key) {
            return key.notifyEvents().contains(type) && key.key().name() == name;
        });
    } else {
        ZelExceptionReporter::run(watched, [&] {
            notifyKeys(m_record, [=](const ZelObservedKey &key) { return key.notifyEvents().contains(type); });
        });
    }
    return false;
}
