// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKeyPath.h"

#include <QList>
#include <QPointer>
#include <QVariant>

/// Reads and writes one key path of many objects: one look-up a class, and no QVariant an object where the type is
/// known.
class ZelSelectionFold
{
public:
    /// The value on which all objects agree, or a marker: no selection without a living object, not applicable where
    /// one lacks the key, multiple values at the first disagreement. Objects that have died are skipped.
    static QVariant value(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path);
    /// Stores the value in every living object that has the key; where none has it, the undefined key is raised. One
    /// that throws leaves the others to be written; the first exception goes on then.
    static void setValue(const QList<QPointer<QObject>> &objects, const QVariant &value, const ZelKeyPath &path);
    /// Whether some object's value can change without a notice.
    static bool isSilent(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path);
};
