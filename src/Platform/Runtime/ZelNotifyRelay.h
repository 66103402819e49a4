// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QMetaObject>
#include <QObject>
#include <vector>

class ZelObjectRecord;
class ZelObservedKey;

/// Hears the NOTIFY signals and events of one observed object. Connected by index to methods that exist only here: no
/// text is looked up and no slot object is made.
class ZelNotifyRelay : public QObject
{
public:
    explicit ZelNotifyRelay(ZelObjectRecord &record)
        : m_record(record)
    {
    }

    void listen(const ZelObservedKey &key);
    /// Stops listening to what no observed key of the record needs any more.
    void stopListening(const ZelObservedKey &key);

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Signal
    {
        int index = -1; // -1: free
        int uses = 0;
        QMetaObject::Connection connection;
    };
    void deliver(int signalIndex);

    ZelObjectRecord &m_record;
    std::vector<Signal> m_signals; // the position is the method's number
    int m_eventUses = 0;
};
