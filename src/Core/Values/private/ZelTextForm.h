// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <optional>

/// The texts of types for which Qt has no conversion, or none that people can read and that brings the value back:
/// locales, time zones, regular expressions, key sequences, times and bytes.
class ZelTextForm
{
public:
    /// Whether the type is one of these.
    static bool has(QMetaType type);
    /// The one of these types that has the name; invalid if there is none.
    static QMetaType typeNamed(QByteArrayView name);
    /// The value's text. Bytes that are no text are written in hexadecimal.
    static QString of(const QVariant &value);
    /// Reads a value of one of these types. If the text means none, the answer is nothing, and the error may say why,
    /// for people.
    static std::optional<QVariant> read(const QString &text, QMetaType type, QString *error = nullptr);
    /// Whether reading the value's text brings the value back. Not so for bytes that are no text, for example.
    static bool isReversible(const QVariant &value);
};
