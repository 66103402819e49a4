// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKeyPath.h"

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <functional>
#include <optional>

class ZelUndoManager;
class ZelValueBlock;

/// Writes that a user makes: recorded for undo, and followed by a look at the properties that cannot announce changes.
///
/// Objects are written one after the other. One that throws leaves the others to be written; what has changed is
/// recorded, and then the first exception goes on. Nothing is recorded where no living object has another value
/// afterwards. Objects without the key are passed over, unless no object has it:
/// then the undefined key is raised.
class ZelRecordedWrite
{
public:
    /// The manager may be null: nothing is recorded then.
    explicit ZelRecordedWrite(ZelUndoManager *manager)
        : m_manager(manager)
    {
    }

    /// Stores the value at the path. Where the path runs through a controller's selection, every selected object's own
    /// old value is recorded.
    void setValueForKeyPath(QObject *root, const QVariant &value, const ZelKeyPath &path) const;

    /// Answers what is to become of an object's value; nothing leaves the object as it is.
    using Map = std::function<std::optional<QVariant>(const QVariant &)>;
    /// Reads each object's value at the path, maps it and stores the answer before the next object is read: a setter
    /// may have changed that one. The path must be a single key to be stored at.
    void mapValues(const QList<QObject *> &objects, const ZelKeyPath &path, const Map &map) const;

    /// Called right before an object is written: makes the new value of the old one, if that is another by now.
    using Refresh = std::function<void(const QObject *, const void *oldValue, void *newValue)>;
    /// Stores a value of its own in each object; the caller knows the old ones.
    void setValues(const QList<QPointer<QObject>> &objects, ZelValueBlock oldValues, ZelValueBlock newValues,
                   const ZelKeyPath &path, const Refresh &refresh) const;

private:
    ZelUndoManager *m_manager;
};
