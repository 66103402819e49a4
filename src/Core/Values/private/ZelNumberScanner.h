// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <optional>

/// Reads numbers from the beginning of a text, in the same way in every locale. What follows the number is ignored.
class ZelNumberScanner
{
public:
    /// Reads blanks, a sign and decimal digits; no digits give 0, and a number that is too large gives the nearest one.
    static qint64 integer(QStringView text);
    /// Whether the text is a whole number and nothing else: blanks, a sign and decimal digits, or "0x" and hexadecimal
    /// digits.
    static bool isInteger(QStringView text);
    /// Whether the text begins with "0x", which announces hexadecimal digits.
    static bool isHexadecimal(QStringView text) { return text.startsWith(u"0x", Qt::CaseInsensitive); }
    /// Reads blanks, an optional "0x" and hexadecimal digits; answers nothing if there is no digit. A number that is
    /// too large gives the largest one.
    static std::optional<quint64> hexadecimal(QStringView text);
    /// Reads blanks, a sign, decimal digits with a point and an exponent; no number gives 0, and one that is too large
    /// gives the nearest finite number.
    static double real(QStringView text);
};
