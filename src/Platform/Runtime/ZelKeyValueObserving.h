// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKeyPath.h"
#include "Platform/Runtime/ZelKeyValueChange.h"

#include <QObject>

class ZelObservedKey;

/// Receives changes. An observer must remove itself from what it observes before it dies; an observed object may die at
/// any time, and removing an observer from a dead object is a no-op as long as the QObject pointer is not used: keep a
/// QPointer and skip the call.
class ZelKeyValueObserver
{
public:
    virtual void observeValueForKeyPath(const ZelKeyPath &keyPath, QObject *object, const ZelKeyValueChange &change,
                                        const void *context) = 0;

protected:
    ~ZelKeyValueObserver() = default;
};

/// Registers an observer for a key path of an object. Changes arrive synchronously.
///
/// Every property with a NOTIFY signal can be observed, and every property that is announced with the functions below
/// or written with ZelSetValueForKey. A change of any object along the path is a change of kind Setting. A list along
/// the path is not looked into: its elements are not observed. Nothing is raised for a key that the object lacks.
/// For a property that has only NOTIFY, the notice before and the one after a change arrive together, after it.
/// Observers may be added and removed, and any object may die, while a change is being delivered; an observer added
/// during delivery does not get that change.
void ZelAddObserver(QObject *object, ZelKeyValueObserver *observer, const ZelKeyPath &keyPath,
                    ZelKeyValueObservingOptions options, const void *context);
/// Removes the latest registration of that observer, key path and context; does nothing if there is none.
void ZelRemoveObserver(QObject *object, ZelKeyValueObserver *observer, const ZelKeyPath &keyPath, const void *context);

/// Whether anybody observes the key of that object.
bool ZelIsObserved(const QObject *object, ZelKey key);

/// Announces a change of a property. Calls come in pairs and may be nested. From the first announcement on, the NOTIFY
/// signal of that property of that object is no longer listened to.
void ZelWillChangeValueForKey(QObject *object, ZelKey key);
void ZelDidChangeValueForKey(QObject *object, ZelKey key);
/// The same for elements of a list: what happens (insertion, removal, replacement) and where.
void ZelWillChangeValueForKey(QObject *object, ZelKeyValueChangeKind kind, const ZelIndexSet &indexes, ZelKey key);
void ZelDidChangeValueForKey(QObject *object, ZelKeyValueChangeKind kind, const ZelIndexSet &indexes, ZelKey key);

/// Reads every observed property again that has no way to announce a change, and delivers what has changed. Called
/// after an edit made by a user.
void ZelRereadSilentProperties();

/// Announces a change from construction to destruction. What an observer throws leaves the destructor.
class ZelValueChange
{
public:
    ZelValueChange(QObject *object, ZelKey key);
    ~ZelValueChange() noexcept(false);
    Q_DISABLE_COPY_MOVE(ZelValueChange)

protected:
    /// `byObject`: whether it is the object's own announcement, after which its signal is no longer listened to.
    ZelValueChange(QObject *object, ZelKey key, bool byObject);

private:
    ZelObservedKey *m_observed; // held, since the object may die meanwhile; null if nobody observes the key
    bool m_byObject;
    int m_uncaught = 0; // exceptions under way at the construction
};
