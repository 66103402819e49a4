// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

/// For walks through many objects: has those fetched from memory that come soon. The processor does not look far ahead
/// by itself, least of all behind a signal that is emitted.
class ZelPrefetch
{
public:
    static void ahead(const QPointer<QObject> *objects, qsizetype index, qsizetype count)
    {
        if (index + objectDistance < count)
            __builtin_prefetch(objects[index + objectDistance].data());
        if (index + dataDistance < count) {
            if (const QObject *object = objects[index + dataDistance].data())
                __builtin_prefetch(Data::of(object));
        }
    }
    static void ahead(const QList<QPointer<QObject>> &objects, qsizetype index)
    {
        ahead(objects.constData(), index, objects.size());
    }

private:
    static constexpr qsizetype objectDistance = 16;
    static constexpr qsizetype dataDistance = 8; // when the object itself has come

    /// An object's class and connections are found through its private data.
    struct Data : QObject
    {
        static const void *of(const QObject *object) { return (object->*&Data::d_ptr).data(); }
    };
};
