// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKeyPath.h"

#include <QObject>
#include <QPointer>
#include <QVariant>

class ZelUndoManager;
class ZelValueBlock;

/// Writes that a user makes: recorded for undo, and followed by a look at the properties that cannot announce changes.
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
    /// Stores a value of its own in each object.
    void setValuesForKey(const QList<QObject *> &objects, const QVariantList &values, ZelKey key) const;
    /// The same where the caller knows the old values.
    void setValuesForKey(const QList<QPointer<QObject>> &objects, ZelValueBlock oldValues, ZelValueBlock newValues,
                         ZelKey key) const;

private:
    ZelUndoManager *m_manager;
};
