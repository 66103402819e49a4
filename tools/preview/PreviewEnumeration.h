// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QStringList>

/// Types of enumerations that are made while the program runs, and are to Qt as those of Q_ENUM. They are never
/// forgotten, as is so with all types.
namespace PreviewEnumeration {

/// The type of an enumeration of the class, with values that count up from 0 or, of flags, are a bit each.
QMetaType type(const QByteArray &className, const QByteArray &name, const QStringList &keys, bool isFlags);

} // namespace PreviewEnumeration
