// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/Selection/ZelValueBlock.h"
#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/Values/ZelNumberChange.h"

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <functional>
#include <optional>

class ZelColumnWatch;
class ZelUndoManager;

/// Makes a user's writes: records them for undo, and rereads the properties that cannot announce changes.
///
/// Objects are written one after the other. If one throws, the others are written all the same; what has changed is
/// recorded, and then the first exception is thrown on. Nothing is recorded if no living object has another value
/// afterwards. Objects without the key are passed over, unless no object has it: then ZelUndefinedKeyException is
/// thrown. Models that validate the values are asked first: if one refuses, nothing is written, and
/// ZelRefusedEditException is thrown.
class ZelRecordedWrite
{
public:
    /// The manager may be null: nothing is recorded then.
    explicit ZelRecordedWrite(ZelUndoManager *manager)
        : m_manager(manager)
    {
    }

    /// Stores the value at the path; a ZelNumberChange as changeNumbers does. If the path runs through a controller's
    /// selection, each selected object's own old value is recorded.
    void setValueForKeyPath(QObject *root, const QVariant &value, const ZelKeyPath &path) const;

    /// Replaces the number of each object at the path, as the transformer, which may be null, shows it, by the one that
    /// the change makes of it. An object for which that is not finite keeps its value; a number that the property
    /// cannot hold is replaced by the nearest one that it can.
    void changeNumbers(QObject *root, const ZelNumberChange &change, const ZelKeyPath &path,
                       const ZelValueTransformerPtr &transformer = {}) const;

    /// Answers the new value for an object's present one; nothing leaves the object as it is.
    using Map = std::function<std::optional<QVariant>(const QVariant &)>;
    /// Reads each object's value at the path, maps it and stores the answer before the next object is read: a setter
    /// may have changed that one. The path must be a single key to be stored at.
    void mapValues(const QList<QObject *> &objects, const ZelKeyPath &path, const Map &map) const;

    /// Stores a value of its own in each object; the caller knows the old ones. If they are of one type, a new value
    /// can be made anew, see ZelValueBlock. A caller who knows that no class of the objects validates the key may say
    /// so.
    void setValues(const QList<QPointer<QObject>> &objects, ZelValueBlock oldValues, ZelValueBlock newValues,
                   const ZelKeyPath &path, const ZelValueBlock::Renew &renew = {}, bool mayBeRefused = true,
                   ZelColumnWatch *watch = nullptr) const;

private:
    ZelUndoManager *m_manager;
};
