// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKeyPath.h"

#include <QObject>
#include <QVariant>
#include <functional>

/// An object that answers keys by itself: it is given the whole remaining key path.
///
/// A class adopts it with Q_INTERFACES(ZelKeyValueCodingInterface).
class ZelKeyValueCodingInterface
{
public:
    virtual ~ZelKeyValueCodingInterface() = default;
    virtual QVariant valueForKeyPath(const ZelKeyPath &path) const = 0;
    virtual void setValueForKeyPath(const QVariant &value, const ZelKeyPath &path) = 0;
    /// Called with the first observer of a path, and after the last one has gone. The object announces its changes
    /// with ZelWillChangeValueForKey and ZelDidChangeValueForKey, the whole path as the key.
    virtual void keyPathWillBeObserved(const ZelKeyPath &) {}
    virtual void keyPathIsNoLongerObserved(const ZelKeyPath &) {}
    /// Asked after an edit made by a user, for every observed path: announces a change that nobody could hear of.
    virtual void rereadKeyPath(const ZelKeyPath &) {}
    /// Shows the objects that a write at the path is passed on to, each with the rest of the path. By default none: the
    /// object stores the value itself.
    using ObjectVisitor = std::function<void(const QObject *object, const ZelKeyPath &path)>;
    virtual void visitObjects(const ZelKeyPath &, const ObjectVisitor &) const {}
};
#define ZelKeyValueCodingInterface_iid "Zel.KeyValueCoding"
Q_DECLARE_INTERFACE(ZelKeyValueCodingInterface, ZelKeyValueCodingInterface_iid)

/// The value of a property of the object. Absent values (see ZelIsAbsent) are answered as an invalid QVariant; a null
/// object answers absent to every key. Throws ZelUndefinedKeyException where the object has no such key.
QVariant ZelValueForKey(const QObject *object, ZelKey key);
QVariant ZelValueForKeyPath(const QObject *object, const ZelKeyPath &path);

/// The same of any value: an object, a map (its entry), a list (the list of its elements' answers), a gadget (its
/// property), a point, size or rectangle (x, y, width, height). Absent and marker values answer themselves.
QVariant ZelValueForKey(const QVariant &value, ZelKey key);
QVariant ZelValueForKeyPath(const QVariant &value, const ZelKeyPath &path);

/// Stores the value; an absent value or the null object resets the property, or stores its type's default value.
/// A property that cannot announce the change by itself is announced here. A path through a gadget, point, size,
/// rectangle or map writes the changed container back. Throws ZelUndefinedKeyException for an unknown or read-only key,
/// and ZelGenericException, "... must be between ... and ...", for a number that the property's type cannot hold:
/// numbers never wrap. A value that cannot be converted is logged as an error and not stored. Does nothing for a null
/// object. ZelPropertyDomain tells beforehand whether a value can be stored.
void ZelSetValueForKey(QObject *object, const QVariant &value, ZelKey key);
void ZelSetValueForKeyPath(QObject *object, const QVariant &value, const ZelKeyPath &path);

/// Whether the object answers the key.
bool ZelHasKey(const QObject *object, ZelKey key);
