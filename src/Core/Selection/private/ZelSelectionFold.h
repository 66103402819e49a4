// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"

#include <QList>
#include <QPointer>
#include <QVariant>

/// Reads and writes one key path of many objects. It costs one look-up for each class and, if the type is known, no
/// QVariant for each object.
class ZelSelectionFold
{
public:
    /// Answers the value on which all objects agree, or a marker: "no selection" without a living object, "not
    /// applicable" if one lacks the key, "multiple values" at the first disagreement. Objects that have died are
    /// skipped.
    static QVariant value(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path);
    /// Stores the value in every living object that has the key; throws ZelUndefinedKeyException if none has it. If one
    /// throws, the others are written all the same, and then the first exception is thrown on.
    static void setValue(const QList<QPointer<QObject>> &objects, const QVariant &value, const ZelKeyPath &path);
    /// Whether the value of some object can change without a notice.
    static bool isSilent(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path);
};
