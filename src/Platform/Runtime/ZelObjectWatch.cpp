// SPDX-License-Identifier: MIT
#include "Platform/Runtime/ZelObjectWatch.h"

ZelObjectWatch::Death::~Death()
{
    QObject::disconnect(connection);
}

ZelObjectWatch::ZelObjectWatch(QObject *object)
{
    // In the last destructor an object is a QObject and nothing else. That is when a new QPointer would never hear of
    // the death; an object that was made as a mere QObject looks the same, but is rarely a value.
    if (object->metaObject() != &QObject::staticMetaObject) {
        m_object = object;
        return;
    }
    m_death = std::make_shared<Death>();
    // The connection goes with the object even if the signal has been sent already, and takes this with it.
    struct AtEnd
    {
        std::weak_ptr<Death> death;
        ~AtEnd() { mark(); }
        void mark() const
        {
            if (const auto watched = death.lock())
                watched->isOver = true;
        }
    };
    const auto end = std::make_shared<AtEnd>();
    end->death = m_death;
    m_death->connection = QObject::connect(object, &QObject::destroyed, [end] { end->mark(); });
}
