// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <QObject>
#include <QVarLengthArray>

/// What the property behind a key path takes. A control asks before it stores a value: a field refuses what is not
/// taken, a stepper or slider keeps to the limits.
///
///     const auto domain = ZelPropertyDomain::ofKeyPath(owner, keyPath);
///     if (domain.check(value) == ZelValueConversion::OutOfRange)
///         refuse("... must be between %1 and %2", domain.limits().minimum, domain.limits().maximum);
///
/// If the path runs through a selection, it is what the properties of all selected objects take. A path that leads
/// nowhere takes everything, and so does a property of any type. Making a domain costs a look at each selected object;
/// make it when it is needed, and do not keep it beyond the event.
class ZelPropertyDomain
{
public:
    /// Reads the objects on the way, but not the property itself.
    static ZelPropertyDomain ofKeyPath(const QObject *object, const ZelKeyPath &path);
    static ZelPropertyDomain ofType(QMetaType type);

    /// Answers whether the value can be stored, and if not, why. Absent values can; see ZelValueConversion for the
    /// rest.
    ZelValueConversion::Result check(const QVariant &value) const;
    bool takes(const QVariant &value) const { return check(value) == ZelValueConversion::Fits; }
    /// Whether one of the properties would round the number.
    bool losesFraction(const QVariant &value) const;
    /// The least and the greatest number that can be stored; invalid if there is no limit.
    ZelValueConversion::Limits limits() const;
    /// The number itself, or the limit nearest to one that is beyond.
    QVariant bounded(const QVariant &number) const;
    /// Whether every finite number can be stored as it is.
    bool takesAllNumbers() const;
    /// Whether there are properties of a known type, and all of these are texts.
    bool isOfTexts() const;
    /// The types of the properties, each once; those of any type are left out.
    const auto &types() const { return m_types; }
    /// Whether none of the properties is read-only.
    bool isWritable() const { return m_isWritable; }

private:
    void add(QMetaType type, bool isWritable);
    void addPath(const QObject *object, const ZelKeyPath &path);
    void addValuePath(const QVariant &container, const ZelKeyPath &path);

    QVarLengthArray<QMetaType, 4> m_types; // each once
    bool m_isWritable = true;
};
