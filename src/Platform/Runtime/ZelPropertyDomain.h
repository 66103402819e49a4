// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKeyPath.h"
#include "Platform/Runtime/ZelValueConversion.h"

#include <QObject>
#include <QVarLengthArray>

/// What the property behind a key path takes, so that a control can tell before it stores a value: a field refuses what
/// is not taken, a stepper or slider keeps to the limits.
///
///     const auto domain = ZelPropertyDomain::ofKeyPath(owner, keyPath);
///     if (domain.check(value) == ZelValueConversion::OutOfRange)
///         refuse("... must be between %1 and %2", domain.limits().minimum, domain.limits().maximum);
///
/// Where the path runs through a selection, it is what the properties of all the selected objects take. A path that
/// leads nowhere, and a property of any type, take everything. Making one costs a look at each selected object; make it
/// when it is needed, and do not keep it beyond the event.
class ZelPropertyDomain
{
public:
    /// Reads the objects on the way, but not the property itself.
    static ZelPropertyDomain ofKeyPath(const QObject *object, const ZelKeyPath &path);
    static ZelPropertyDomain ofType(QMetaType type);

    /// Whether the value can be stored, and why not. Absent values can; see ZelValueConversion for the rest.
    ZelValueConversion::Result check(const QVariant &value) const;
    bool takes(const QVariant &value) const { return check(value) == ZelValueConversion::Fits; }
    /// Whether one of the properties would round the number, which it takes.
    bool losesFraction(const QVariant &value) const;
    /// The least and the greatest number that can be stored; invalid where there is no limit.
    ZelValueConversion::Limits limits() const;
    /// The nearest number that can be stored.
    double bounded(double number) const;
    /// Whether there are properties, and all of them are texts.
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
