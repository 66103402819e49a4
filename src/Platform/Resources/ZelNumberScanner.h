// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <optional>

/// Reads numbers from the beginning of a text, in the same way in every locale. What follows the number is ignored.
class ZelNumberScanner
{
public:
    /// Blanks, a sign and decimal digits; no digits give 0. What is too large gives the nearest number.
    static qint64 integer(QStringView text);
    /// Whether the text is a whole number and nothing else: blanks, a sign and decimal digits, or "0x" and hexadecimal
    /// digits.
    static bool isInteger(QStringView text);
    /// Blanks, an optional "0x" and hexadecimal digits; nothing without a digit. What is too large gives the largest
    /// number.
    static std::optional<quint64> hexadecimal(QStringView text);
    /// Blanks, a sign, decimal digits with a point and an exponent; no number gives 0. What is too large gives the
    /// nearest finite number.
    static double real(QStringView text);
};
