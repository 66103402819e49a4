// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/private/ZelSignalReceiver.h"

#include <QEvent>
#include <QProperty>
#include <memory>
#include <vector>

class ZelObjectRecord;
class ZelObservedKey;

/// Hears the NOTIFY signals and events of one observed object.
class ZelNotifyRelay : public ZelSignalReceiver
{
public:
    explicit ZelNotifyRelay(ZelObjectRecord &record)
        : m_record(record)
    {
    }

    void listen(ZelObservedKey &key);
    /// Stops listening to what no observed key of the record needs any more.
    void stopListening(const ZelObservedKey &key);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Signal
    {
        int index = -1; // -1: free
        int uses = 0;
        QMetaObject::Connection connection;
    };
    void heard(int number, void **arguments) override;
    void listenToBinding(ZelObservedKey &key);

    ZelObjectRecord &m_record;
    std::vector<Signal> m_signals; // the position is the connection's number
    int m_eventUses = 0;
    std::vector<std::pair<const ZelObservedKey *, std::unique_ptr<QPropertyNotifier>>> m_notifiers;
};
