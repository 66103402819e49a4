// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelNamedValueTransformer.h"

// The names under which the transformers are registered; each holds its own name as text.
extern const QString ZelPointerToStringTransformerName;
extern const QString ZelFirstInArrayTransformerName;
extern const QString ZelIsNotEmptyTransformerName;
extern const QString ZelNilOrNoTransformerName;
extern const QString ZelPercentValueTransformerName;
extern const QString ZelColorNameTransformerName;
extern const QString ZelZeroPointTransformerName;
extern const QString ZelDebugTransformerName;

/// Registers the named transformers that are there from the start: all but ZelZeroPointTransformer and
/// ZelDebugTransformer. This happens when the library is loaded; a program that links it statically calls it, or builds
/// an inspector, which does. Later calls do nothing.
void ZelRegisterTransformers();

/// A number to the text of its hexadecimal digits after "0x", and back. A text without such digits gives an absent
/// value.
class ZelPointerToStringTransformer : public ZelNamedValueTransformer
{
public:
    ZelPointerToStringTransformer();
    static QString transformerName() { return ZelPointerToStringTransformerName; }
};

/// A list to its first element; absent for an empty one. Sets and the like are no lists.
class ZelFirstInArrayTransformer : public ZelNamedValueTransformer
{
public:
    ZelFirstInArrayTransformer();
    static QString transformerName() { return ZelFirstInArrayTransformerName; }
};

/// Anything that has a count (lists, sets, maps, index sets, objects with a key "count") to whether it is not 0; false
/// for an absent value.
class ZelIsNotEmptyTransformer : public ZelNamedValueTransformer
{
public:
    ZelIsNotEmptyTransformer();
    static QString transformerName() { return ZelIsNotEmptyTransformerName; }
};

/// A number of any type to itself, and an absent value to false. The class of its values is "double", as that of any
/// number.
class ZelNilOrNoTransformer : public ZelNamedValueTransformer
{
public:
    ZelNilOrNoTransformer();
    static QString transformerName() { return ZelNilOrNoTransformerName; }
};

/// A fraction to percents, and back.
class ZelPercentValueTransformer : public ZelNamedValueTransformer
{
public:
    ZelPercentValueTransformer();
    static QString transformerName() { return ZelPercentValueTransformerName; }
};

/// The point (0, 0) for absent values and selection markers; every other value is passed through. Registered when the
/// first one is made or its name is first asked for.
class ZelZeroPointTransformer : public ZelAbstractValueTransformer
{
public:
    ZelZeroPointTransformer();
    static QString transformerName();
    QVariant transformedValue(const QVariant &value) const override;
    QString transformedValueClass() const override { return QStringLiteral("QPointF"); }
};

/// Passes every value through: a place for a breakpoint. Registered when the first one is made or its name is first
/// asked for.
class ZelDebugTransformer : public ZelAbstractValueTransformer
{
public:
    ZelDebugTransformer();
    static QString transformerName();
    QVariant transformedValue(const QVariant &value) const override { return value; }
};
