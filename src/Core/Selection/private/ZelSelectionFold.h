// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"

#include <QList>
#include <QPointer>
#include <QVariant>

#include <optional>
#include <vector>

/// Reads and writes one key path of many objects. It costs one look-up for each class and, if the type is known, no
/// QVariant for each object.
class ZelSelectionFold
{
public:
    /// Answers the value on which all objects agree, or a marker: "no selection" without a living object, "not
    /// applicable" if one lacks the key, "multiple values" at the first disagreement. Objects that have died are
    /// skipped.
    static QVariant value(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path);
    /// One of several keys that are read together.
    struct Reading
    {
        ZelKey key;
        QPointer<const QObject> reader; ///< whose place in a description is named by what getters log; may be null
    };
    /// Answers the same for several keys. All values of an object are read one after the other, while it is at hand:
    /// with many objects, fetching each from memory takes longer than reading it. A key has no answer if a getter has
    /// thrown, or if an object answers keys itself; it is then to be read alone.
    static std::vector<std::optional<QVariant>> values(const QList<QPointer<QObject>> &objects,
                                                       const std::vector<Reading> &readings);
    /// Stores the value in every living object that has the key; throws ZelUndefinedKeyException if none has it. If one
    /// throws, the others are written all the same, and then the first exception is thrown on.
    static void setValue(const QList<QPointer<QObject>> &objects, const QVariant &value, const ZelKeyPath &path);
    /// Whether the value of some object can change without a notice.
    static bool isSilent(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path);
};
