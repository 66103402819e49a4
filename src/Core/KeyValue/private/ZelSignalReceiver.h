// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaObject>
#include <QObject>

/// Hears signals that are known by their index. Its connections lead to method numbers that exist in no meta-object, so
/// that no text is looked up and no slot object is made: with many objects, connecting takes most of the time.
class ZelSignalReceiver : public QObject
{
public:
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) final
    {
        static const int first = QObject::staticMetaObject.methodCount();
        if (call != QMetaObject::InvokeMetaMethod || id < first)
            return QObject::qt_metacall(call, id, arguments);
        heard(id - first, arguments);
        return -1;
    }

protected:
    QMetaObject::Connection listenTo(const QObject *sender, int signalIndex, int number = 0)
    {
        return QMetaObject::connect(sender, signalIndex, this, QObject::staticMetaObject.methodCount() + number,
                                    Qt::DirectConnection);
    }
    /// Called when a signal is emitted whose connection has that number. It may delete the receiver.
    virtual void heard(int number, void **arguments) = 0;
};
