// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/KeyValue/ZelKeyValueChange.h"
#include "Core/ZelExport.h"

#include <QObject>

class ZelObservedKey;

/// Receives changes. An observer must remove itself from what it observes before it dies. An observed object may die at
/// any time, and its registrations end with it. Do not pass a pointer to a dead object to ZelRemoveObserver: keep a
/// QPointer, and skip the call if that is null.
class ZEL_EXPORT ZelKeyValueObserver
{
public:
    virtual void observeValueForKeyPath(const ZelKeyPath &keyPath, QObject *object, const ZelKeyValueChange &change,
                                        const void *context) = 0;

protected:
    ~ZelKeyValueObserver() = default;
};

/// Registers an observer for a key path of an object. Changes arrive synchronously.
///
/// Changes are heard of if the property has a NOTIFY signal, if they are announced with the functions below, or if they
/// are made with ZelSetValueForKey. If another object takes a place along the path, a change of kind Setting is
/// delivered. A list along the path is not looked into: its elements are not observed. A key that the object lacks is
/// no error. For a property that has only NOTIFY, the notice before and the one after a change both arrive after it.
/// Observers may be added and removed, and any object may die, while a change is being delivered; an observer that is
/// added meanwhile does not get that change. Does nothing for a null object or observer and for an empty path.
ZEL_EXPORT void ZelAddObserver(QObject *object, ZelKeyValueObserver *observer, const ZelKeyPath &keyPath,
                               ZelKeyValueObservingOptions options, const void *context);
/// Removes the latest registration of that observer, key path and context; does nothing if there is none.
ZEL_EXPORT void ZelRemoveObserver(QObject *object, ZelKeyValueObserver *observer, const ZelKeyPath &keyPath,
                                  const void *context);

/// Whether anybody observes the key of that object.
ZEL_EXPORT bool ZelIsObserved(const QObject *object, ZelKey key);

/// Announces a change of a property. Calls come in pairs and may be nested. Once an observed property has been
/// announced in this way, its NOTIFY signal is ignored for that object.
ZEL_EXPORT void ZelWillChangeValueForKey(QObject *object, ZelKey key);
ZEL_EXPORT void ZelDidChangeValueForKey(QObject *object, ZelKey key);
/// Announces a change of elements of a list: what happens (insertion, removal, replacement) and where.
ZEL_EXPORT void ZelWillChangeValueForKey(QObject *object, ZelKeyValueChangeKind kind, const ZelIndexSet &indexes,
                                         ZelKey key);
ZEL_EXPORT void ZelDidChangeValueForKey(QObject *object, ZelKeyValueChangeKind kind, const ZelIndexSet &indexes,
                                        ZelKey key);

/// Reads all observed properties again that have no way to announce a change, and delivers what has changed. The
/// library calls it after each edit of a user.
ZEL_EXPORT void ZelRereadSilentProperties();

/// Announces a change: its beginning on construction, its end on destruction. What an observer throws leaves the
/// destructor, unless an exception is under way already; then it is reported.
class ZEL_EXPORT ZelValueChange
{
public:
    ZelValueChange(QObject *object, ZelKey key);
    ~ZelValueChange() noexcept(false);
    Q_DISABLE_COPY_MOVE(ZelValueChange)

protected:
    /// `byObject` says whether this is the object's own announcement, after which its signal is ignored.
    ZelValueChange(QObject *object, ZelKey key, bool byObject);

private:
    ZelObservedKey *m_observed; // held, since the object may die meanwhile; null if nobody observes the key
    bool m_byObject;
    int m_uncaught = 0; // exceptions under way at the construction
};
