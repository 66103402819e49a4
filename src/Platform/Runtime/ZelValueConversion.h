// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QVariant>

/// Turns a value into the type of the property that is to store it, and tells why that is not possible. Numbers never
/// wrap.
class ZelValueConversion
{
public:
    enum Result : quint8 {
        Fits,
        OutOfRange,   ///< a number, or a text of one, that the type cannot hold
        Unconvertible ///< such as a text that is no time, and a key that an enumeration does not have
    };

    /// Converts the value in place; it is unchanged unless the answer is Fits.
    ///
    /// Fractions are rounded for a type of integers, half away from zero. An absent value and the null object become
    /// the type's default value, and so does an empty text for a type that is neither a number, an enumeration nor a
    /// text. A text that the type reads as "none", such as a malformed address for a QUrl, is unconvertible, and so is
    /// a font, a colour or a list of texts for a text. An invalid type takes everything as it is.
    static Result convert(QVariant &value, QMetaType type);
    /// Whether the number, or the text of one, has a fraction that convert would round away.
    static bool losesFraction(const QVariant &value, QMetaType type);

    /// The least and the greatest number that the type holds: qlonglong, qulonglong or double; invalid where there is
    /// no limit, as for double, and for types that are no numbers.
    struct Limits
    {
        QVariant minimum;
        QVariant maximum;
        bool isValid() const { return minimum.isValid(); }
    };
    static Limits limits(QMetaType type);

    /// The bits as a number of the type, its sign bit included: for a value some of whose bits have been changed, which
    /// may be negative as a number. Unsigned, of 64 bits, where the type has no room for them or is not of integers.
    static QVariant ofBits(quint64 bits, QMetaType type);
};
