// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKey.h"
#include "Core/ZelExport.h"

#include <QMetaType>
#include <QObject>

#include <span>

/// A model that keeps the values of its objects in columns, and can read and write those of many at once.
///
/// It is optional: without a store, and for every key that a store does not have, each object is asked for its
/// property. Selections, undo and redo use a store where values are numbers, truth values, enumerations, points, sizes,
/// rectangles or of another type that needs no destructor. One store serves all objects of a class, whichever document
/// they belong to.
///
///     class Samples : public ZelColumnStore { ... };
///     ZelColumnStore::registerStore(&Sample::staticMetaObject, &samples);
class ZEL_EXPORT ZelColumnStore
{
public:
    virtual ~ZelColumnStore();

    /// Stores the value that each object has for the key in the memory at `values`, one after the other, as values of
    /// that type, which is the property's. Answers false if it does not have that key; nothing is stored then.
    virtual bool readColumn(ZelKey key, QMetaType type, std::span<const QObject *const> objects,
                            void *values) const = 0;
    /// Gives each object its value and announces the changes as the setters of the objects would: whoever observes an
    /// object hears of them by its signal. Answers false if it does not have that key, or would have to write another
    /// value than it is given; nothing is written then. The setters are called instead.
    virtual bool writeColumn(ZelKey key, QMetaType type, std::span<QObject *const> objects, const void *values) = 0;

    /// Has the objects of a class, and of those derived from it, read and written through the store, until it dies or
    /// another one or null is registered for the class. To be called on the main thread.
    static void registerStore(const QMetaObject *metaObject, ZelColumnStore *store);
    /// Null for a class without a store.
    static ZelColumnStore *find(const QMetaObject *metaObject);
    static bool isAnyRegistered();
};
