// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QObject>
#include <QVariant>

/// What a selection answers instead of a value.
enum ZelControllerMarker { ZelNoSelectionMarker, ZelMultipleValuesMarker, ZelNotApplicableMarker };
Q_DECLARE_METATYPE(ZelControllerMarker)

/// The null object: a value that stands for "no value" where an absent value cannot be stored.
ZEL_EXPORT QVariant ZelNull();

/// Whether the value is absent: invalid, an unset text, a null object pointer, or an invalid date, time or colour.
ZEL_EXPORT bool ZelIsAbsent(const QVariant &value);

/// The value itself, or an invalid QVariant where it is absent.
ZEL_EXPORT QVariant ZelPresent(QVariant value);

/// Whether the value is absent or the null object.
ZEL_EXPORT bool ZelIsNull(const QVariant &value);
inline bool ZelIsNotNull(const QVariant &value)
{
    return !ZelIsNull(value);
}

/// Whether the value is one of the selection markers.
ZEL_EXPORT bool ZelIsControllerMarker(const QVariant &value);
ZEL_EXPORT bool ZelIsMarker(const QVariant &value, ZelControllerMarker marker);

/// Whether both are absent, point to the same object, are equal numbers of whatever types, or are of one type and equal
/// by Qt's comparison. An unset text is absent and differs from an empty one.
ZEL_EXPORT bool ZelEqual(const QVariant &a, const QVariant &b);
inline bool ZelNotEqual(const QVariant &a, const QVariant &b)
{
    return !ZelEqual(a, b);
}

/// The object that the value points to, whatever its static class; null if it holds none.
ZEL_EXPORT QObject *ZelObject(const QVariant &value);

/// Whether the value is a number: of any built-in arithmetic type, Boolean included, or of an enumeration.
ZEL_EXPORT bool ZelIsNumber(const QVariant &value);

/// Whether the value is a sequence: a list or set of anything, but no text and no bytes.
ZEL_EXPORT bool ZelIsList(const QVariant &value);
/// The elements of a sequence; none for any other value.
ZEL_EXPORT QVariantList ZelList(const QVariant &value);

/// The class name shown in messages: the object's class or the value's type; "nil" for an absent value.
ZEL_EXPORT QString ZelClassName(const QVariant &value);
/// A short text for messages: the value itself, or class and address for an object.
ZEL_EXPORT QString ZelDescription(const QVariant &value);
/// The text "<Class: 0xADDRESS>" for an object; "(null)" for none.
ZEL_EXPORT QString ZelObjectDescription(const QObject *object);
