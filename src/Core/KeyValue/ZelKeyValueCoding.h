// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/ZelExport.h"

#include <QObject>
#include <QVariant>
#include <functional>

/// An object that answers keys itself: it is given all that remains of the key path.
///
/// A class adopts it with Q_INTERFACES(ZelKeyValueCodingInterface).
class ZEL_EXPORT ZelKeyValueCodingInterface
{
public:
    virtual ~ZelKeyValueCodingInterface() = default;
    virtual QVariant valueForKeyPath(const ZelKeyPath &path) const = 0;
    virtual void setValueForKeyPath(const QVariant &value, const ZelKeyPath &path) = 0;
    /// Called when a path gets its first observer, and when the last one has gone. The object announces changes with
    /// ZelWillChangeValueForKey and ZelDidChangeValueForKey, with the whole path as the key.
    virtual void keyPathWillBeObserved(const ZelKeyPath &) {}
    virtual void keyPathIsNoLongerObserved(const ZelKeyPath &) {}
    /// Called for every observed path after a user's edit. The object announces the change, if there is one that it
    /// could not hear of.
    virtual void rereadKeyPath(const ZelKeyPath &) {}
    /// Calls the visitor for each object to which a write at the path is passed on, with the rest of the path. By
    /// default there are none: the object stores the value itself.
    using ObjectVisitor = std::function<void(const QObject *object, const ZelKeyPath &path)>;
    virtual void visitObjects(const ZelKeyPath &, const ObjectVisitor &) const {}
};
#define ZelKeyValueCodingInterface_iid "Zel.KeyValueCoding"
Q_DECLARE_INTERFACE(ZelKeyValueCodingInterface, ZelKeyValueCodingInterface_iid)

/// Answers the value of a property of the object. Absent values (see ZelIsAbsent) are answered as an invalid QVariant;
/// a null object answers absent to every key. Throws ZelUndefinedKeyException if the object has no such key.
ZEL_EXPORT QVariant ZelValueForKey(const QObject *object, ZelKey key);
ZEL_EXPORT QVariant ZelValueForKeyPath(const QObject *object, const ZelKeyPath &path);

/// The same for any value: an object, a map (its entry), a list (the list of its elements' answers), a gadget (its
/// property), a point, size or rectangle of doubles (x, y, width, height). An absent value answers absent, a selection
/// marker answers itself.
ZEL_EXPORT QVariant ZelValueForKey(const QVariant &value, ZelKey key);
ZEL_EXPORT QVariant ZelValueForKeyPath(const QVariant &value, const ZelKeyPath &path);

/// Stores the value; an absent value or the null object resets the property, or stores its type's default value. For a
/// property that cannot announce the change itself, the change is announced here. A path through a gadget, point, size,
/// rectangle or map writes the changed container back. Throws ZelUndefinedKeyException for an unknown or read-only key,
/// and ZelGenericException, "... must be between ... and ...", for a number that the property's type cannot hold:
/// numbers never wrap. A value that cannot be converted is not stored, and an error is logged. Does nothing for a null
/// object.
ZEL_EXPORT void ZelSetValueForKey(QObject *object, const QVariant &value, ZelKey key);
ZEL_EXPORT void ZelSetValueForKeyPath(QObject *object, const QVariant &value, const ZelKeyPath &path);

/// Whether the object answers the key.
ZEL_EXPORT bool ZelHasKey(const QObject *object, ZelKey key);
