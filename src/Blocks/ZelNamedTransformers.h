// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelNamedValueTransformer.h"
#include "Core/ZelExport.h"

// The names under which the transformers are registered; each holds its own name as text.
extern ZEL_EXPORT const QString ZelPointerToStringTransformerName;
extern ZEL_EXPORT const QString ZelFirstInArrayTransformerName;
extern ZEL_EXPORT const QString ZelIsNotEmptyTransformerName;
extern ZEL_EXPORT const QString ZelNilOrNoTransformerName;
extern ZEL_EXPORT const QString ZelPercentValueTransformerName;
extern ZEL_EXPORT const QString ZelColorNameTransformerName;
extern ZEL_EXPORT const QString ZelZeroPointTransformerName;
extern ZEL_EXPORT const QString ZelDebugTransformerName;

/// Registers the named transformers that are there from the start: all but ZelZeroPointTransformer and
/// ZelDebugTransformer. This happens when the library is loaded; a program that links it statically calls it, or builds
/// an inspector, which does. Later calls do nothing.
ZEL_EXPORT void ZelRegisterTransformers();

/// A number to the text of its hexadecimal digits after "0x", and back. A text without such digits gives an absent
/// value.
class ZEL_EXPORT ZelPointerToStringTransformer : public ZelNamedValueTransformer
{
public:
    ZelPointerToStringTransformer();
    static QString transformerName() { return ZelPointerToStringTransformerName; }
};

/// A list to its first element; absent for an empty one. Sets and the like are no lists.
class ZEL_EXPORT ZelFirstInArrayTransformer : public ZelNamedValueTransformer
{
public:
    ZelFirstInArrayTransformer();
    static QString transformerName() { return ZelFirstInArrayTransformerName; }
};

/// Anything that has a count (lists, sets, maps, index sets, objects with a key "count") to whether it is not 0; false
/// for an absent value.
class ZEL_EXPORT ZelIsNotEmptyTransformer : public ZelNamedValueTransformer
{
public:
    ZelIsNotEmptyTransformer();
    static QString transformerName() { return ZelIsNotEmptyTransformerName; }
};

/// A number of any type to itself, and an absent value to false. The class of its values is "double", as that of any
/// number.
class ZEL_EXPORT ZelNilOrNoTransformer : public ZelNamedValueTransformer
{
public:
    ZelNilOrNoTransformer();
    static QString transformerName() { return ZelNilOrNoTransformerName; }
};

/// A fraction to percents, and back.
class ZEL_EXPORT ZelPercentValueTransformer : public ZelNamedValueTransformer
{
public:
    ZelPercentValueTransformer();
    static QString transformerName() { return ZelPercentValueTransformerName; }
};

/// The point (0, 0) for absent values and selection markers; every other value is passed through. Registered when the
/// first one is made or its name is first asked for.
class ZEL_EXPORT ZelZeroPointTransformer : public ZelAbstractValueTransformer
{
public:
    ZelZeroPointTransformer();
    static QString transformerName();
    QVariant transformedValue(const QVariant &value) const override;
    QString transformedValueClass() const override { return QStringLiteral("QPointF"); }
};

/// Passes every value through: a place for a breakpoint. Registered when the first one is made or its name is first
/// asked for.
class ZEL_EXPORT ZelDebugTransformer : public ZelAbstractValueTransformer
{
public:
    ZelDebugTransformer();
    static QString transformerName();
    QVariant transformedValue(const QVariant &value) const override { return value; }
};
