// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QVariant>

/// What a selection answers instead of a value.
enum ZelControllerMarker { ZelNoSelectionMarker, ZelMultipleValuesMarker, ZelNotApplicableMarker };
Q_DECLARE_METATYPE(ZelControllerMarker)

/// The null object: a value that stands for "no value" where absent cannot be stored.
QVariant ZelNull();

/// Whether the value is absent: invalid, an unset text, a null object pointer, or an invalid date, time or colour.
bool ZelIsAbsent(const QVariant &value);

/// The value itself, or an invalid QVariant where it is absent.
QVariant ZelPresent(QVariant value);

/// Absent or the null object.
bool ZelIsNull(const QVariant &value);
inline bool ZelIsNotNull(const QVariant &value)
{
    return !ZelIsNull(value);
}

/// Whether the value is one of the selection markers.
bool ZelIsControllerMarker(const QVariant &value);
bool ZelIsMarker(const QVariant &value, ZelControllerMarker marker);

/// Both absent, the same object, or equal by Qt's comparison, numbers across types included.
bool ZelEqual(const QVariant &a, const QVariant &b);
inline bool ZelNotEqual(const QVariant &a, const QVariant &b)
{
    return !ZelEqual(a, b);
}

/// The object that the value points to, whatever its static class; null if it holds none.
QObject *ZelObject(const QVariant &value);

/// Whether the value is a number: of any built-in arithmetic type, Boolean included, or of an enumeration.
bool ZelIsNumber(const QVariant &value);

/// Whether the value is a sequence (list or set of anything) or an ordered set; its elements.
bool ZelIsList(const QVariant &value);
QVariantList ZelList(const QVariant &value);

/// The class name shown in messages: the object's class or the value's type; "nil" for an absent value.
QString ZelClassName(const QVariant &value);
/// A short text for messages: the value itself, or class and address for an object.
QString ZelDescription(const QVariant &value);
/// "<Class: 0xADDRESS>" of an object; "(null)" for none.
QString ZelObjectDescription(const QObject *object);
