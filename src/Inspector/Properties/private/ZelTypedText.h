// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QStringList>
#include <QVariant>
#include <optional>

/// Values of any type as texts, and texts as values of a wanted type.
class ZelTypedText
{
public:
    /// Reads a text of a description, in the same way in every locale: numbers, "yes" and "no", dates by ISO 8601,
    /// colours by name or in hexadecimal, fonts as QFont::toString writes them, texts of a list with commas between
    /// them, and points, sizes and rectangles as their numbers. Nothing for a text that means no value of the type; an
    /// invalid type takes every text as it is.
    static std::optional<QVariant> described(const QString &text, QMetaType type);
    /// Reads a text of a person, in the default locale; else as above.
    static std::optional<QVariant> entered(const QString &text, QMetaType type);
    /// Writes the value for people. Null for an absent value, and for one that has no text.
    static QString of(const QVariant &value);

    /// The texts of several numbers with commas, semicolons, tabs, line ends or blanks between them. A comma separates
    /// where it cannot be the locale's decimal or group separator: before a blank, and if the text as a whole is no
    /// number. A unit behind a number stays with it.
    static QStringList numbersIn(const QString &text);
    /// All ways to take a text apart where several numbers may be separated, the surest one first. Empty if there is
    /// none. The parts need not be numbers.
    static QList<QStringList> splits(const QString &text);
    /// The inverse of numbersIn: what the locale does not take for a part of a number is between them.
    static QString joined(const QStringList &numbers);
};
