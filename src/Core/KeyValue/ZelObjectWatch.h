// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QObject>
#include <QPointer>
#include <memory>

/// Tells whether an object has died since the watch was made. Unlike a QPointer, it may be made while the object's
/// destructor runs, as happens when models announce that an object leaves them; the death is noticed then as well.
class ZEL_EXPORT ZelObjectWatch
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
    std::shared_ptr<Death> m_death; // used instead where it may be too late for a QPointer
};
