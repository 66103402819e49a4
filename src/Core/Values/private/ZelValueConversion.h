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
        Unconvertible ///< any other value that cannot be stored, such as a text that is no time
    };

    /// Converts the value in place; it is unchanged unless the answer is Fits.
    ///
    /// For a type of integers, fractions are rounded, halves away from zero. An absent value and the null object become
    /// the type's default value, and so does an empty text for a type that is neither a number, an enumeration nor a
    /// text. A text that the type would read as "none", such as a malformed address for a QUrl, is unconvertible, and
    /// so is a font, a colour or a list of texts for a text. An invalid type takes everything as it is.
    static Result convert(QVariant &value, QMetaType type);
    /// Whether the number, or the text of one, has a fraction that convert would round away.
    static bool losesFraction(const QVariant &value, QMetaType type);

    /// The least and the greatest number that a type holds, as qlonglong, qulonglong or double. They are invalid for
    /// double, which has no limit here, and for types that are no numbers.
    struct Limits
    {
        QVariant minimum;
        QVariant maximum;
        bool isValid() const { return minimum.isValid(); }
    };
    static Limits limits(QMetaType type);

    /// Answers the bits as a number of the type, sign bit included: for a value of which some bits have been changed,
    /// and which may be negative as a number. If the type has no room for the bits, or is not of integers, the answer
    /// is an unsigned number of 64 bits.
    static QVariant ofBits(quint64 bits, QMetaType type);
};
