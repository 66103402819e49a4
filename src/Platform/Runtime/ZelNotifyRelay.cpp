// SPDX-License-Identifier: MIT
#include "Platform/Runtime/ZelNotifyRelay.h"

#include "Platform/Runtime/ZelChangeDelivery.h"
#include "Platform/Runtime/ZelExceptionReporter.h"
#include "Platform/Runtime/ZelFirstException.h"
#include "Platform/Runtime/ZelObjectRecord.h"

#include <QDynamicPropertyChangeEvent>

namespace {

const int g_firstMethod = QObject::staticMetaObject.methodCount();

/// Holds the keys of a record that a change concerns: the record and this relay may go while they are told.
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

void ZelNotifyRelay::listen(const ZelObservedKey &key)
{
    if (!key.notifyEvents().isEmpty() && m_eventUses++ == 0)
        m_record.object()->installEventFilter(this);
    const int index = key.notifySignalIndex();
    if (index < 0)
        return;
    auto place = std::find_if(m_signals.begin(), m_signals.end(), [&](const Signal &s) { return s.index == index; });
    if (place == m_signals.end()) {
        place = std::find_if(m_signals.begin(), m_signals.end(), [](const Signal &s) { return s.index < 0; });
        if (place == m_signals.end())
            place = m_signals.insert(place, Signal());
        place->index = index;
        place->connection = QMetaObject::connect(m_record.object(), index, this,
                                                 g_firstMethod + int(place - m_signals.begin()), Qt::DirectConnection);
    }
    ++place->uses;
}

void ZelNotifyRelay::stopListening(const ZelObservedKey &key)
{
    if (!key.notifyEvents().isEmpty() && --m_eventUses == 0)
        m_record.object()->removeEventFilter(this);
    const int index = key.notifySignalIndex();
    for (Signal &signal : m_signals) {
        if (index < 0 || signal.index != index || --signal.uses > 0)
            continue;
        disconnect(signal.connection);
        signal = Signal();
    }
}

int ZelNotifyRelay::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    if (id < g_firstMethod || call != QMetaObject::InvokeMetaMethod)
        return QObject::qt_metacall(call, id, arguments);
    const size_t place = size_t(id - g_firstMethod);
    if (place < m_signals.size() && m_signals[place].index >= 0)
        deliver(m_signals[place].index);
    return -1;
}

void ZelNotifyRelay::deliver(int signalIndex)
{
    notifyKeys(m_record, [=](const ZelObservedKey &key) { return key.notifySignalIndex() == signalIndex; });
}

bool ZelNotifyRelay::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_record.object())
        return false;
    const QEvent::Type type = event->type();
    // Only a setter sends this one, and what observers throw reaches whoever called it.
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
