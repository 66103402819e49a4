// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelObjectWatch.h"

ZelObjectWatch::Death::~Death()
{
    QObject::disconnect(connection);
}

ZelObjectWatch::ZelObjectWatch(QObject *object)
{
    // While its last destructor runs, an object is a QObject and nothing else. A QPointer that is made then may never
    // hear of the death. An object that was made as a mere QObject looks the same, but is rarely a value.
    if (object->metaObject() != &QObject::staticMetaObject) {
        m_object = object;
        return;
    }
    m_death = std::make_shared<Death>();
    // The connection is deleted with the object, even if the signal has been sent already. That deletes the functor and
    // with it this, whose destructor marks the death.
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
