// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>
#include <QVariant>
#include <optional>

class QMimeData;

/// Values on the clipboard: as a text for people, and as themselves, by the key path below the selection.
///
/// The type is application/x-zel-values. Its data is a JSON object of key paths, each with an object of "type" and
/// "value". Numbers are written as texts, since JSON knows neither all integers of 64 bits nor NaN. Points, sizes and
/// rectangles, colours of every space, fonts, dates with their time zone, lists and rich texts come back as they were.
/// A value of an enumeration that a program does not know comes back as its number. Objects and pictures cannot be
/// held.
class ZelValueClipboard
{
public:
    using Values = QMap<QString, QVariant>;

    static QString mimeType();
    static bool canHold(const QVariant &value);
    /// The caller owns the answer. The values must be ones that can be held.
    static QMimeData *mimeData(const Values &values, const QString &text);
    /// Reads what any program may have put there. Nothing if it holds no values, or is malformed, nested too deeply or
    /// larger than maximumSize.
    static std::optional<Values> values(const QMimeData *data);

    static constexpr qsizetype maximumSize = qsizetype(4) * 1024 * 1024; ///< in bytes
    static constexpr qsizetype maximumTextLength = 1024 * 1024;          ///< of a text that is pasted, in UTF-16 units
};
