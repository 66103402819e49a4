// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <memory>

/// Tells whether an object has died since. Other than a QPointer, it may be made while the object's destructor runs, as
/// happens where models announce that an object leaves them: it is dead then, or will be.
class ZelObjectWatch
{
public:
    explicit ZelObjectWatch(QObject *object);

    bool hasDied() const { return m_death ? m_death->isOver : m_object.isNull(); }

private:
    struct Death
    {
        ~Death();
        bool isOver = false;
        QMetaObject::Connection connection;
    };

    QPointer<QObject> m_object;
    std::shared_ptr<Death> m_death; // instead of it, where it may be too late for a QPointer
};
