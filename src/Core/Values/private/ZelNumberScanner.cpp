// SPDX-License-Identifier: MIT
#include "Core/Values/private/ZelNumberScanner.h"

#include <algorithm>
#include <limits>

namespace {

QStringView withoutLeadingBlanks(QStringView text)
{
    const auto first = std::find_if_not(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    return text.sliced(first - text.begin());
}

// QChar::isDigit knows the digits of every script; these formats do not.
int digitValue(QChar c)
{
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9')
        return u - u'0';
    if (u >= u'a' && u <= u'f')
        return u - u'a' + 10;
    if (u >= u'A' && u <= u'F')
        return u - u'A' + 10;
    return 16;
}

bool isDecimalDigit(QStringView text, qsizetype index)
{
    return index < text.size() && digitValue(text[index]) < 10;
}

qsizetype skipSign(QStringView text, qsizetype index)
{
    return index < text.size() && (text[index] == u'+' || text[index] == u'-') ? index + 1 : index;
}

qsizetype skipDigits(QStringView text, qsizetype index)
{
    while (isDecimalDigit(text, index))
        ++index;
    return index;
}

/// The length of the decimal number that the text begins with; 0 for none.
qsizetype realLength(QStringView text)
{
    const qsizetype start = skipSign(text, 0);
    qsizetype end = skipDigits(text, start);
    qsizetype digits = end - start;
    if (end < text.size() && text[end] == u'.') {
        const qsizetype fraction = end + 1;
        const qsizetype fractionEnd = skipDigits(text, fraction);
        digits += fractionEnd - fraction;
        end = fractionEnd;
    }
    if (digits == 0)
        return 0;
    if (end < text.size() && (text[end] == u'e' || text[end] == u'E')) {
        const qsizetype exponent = skipSign(text, end + 1);
        if (isDecimalDigit(text, exponent))
            end = skipDigits(text, exponent);
    }
    return end;
}

} // namespace

qint64 ZelNumberScanner::integer(QStringView text)
{
    text = withoutLeadingBlanks(text);
    const bool negative = text.startsWith(u'-');
    const quint64 limit = quint64(std::numeric_limits<qint64>::max()) + (negative ? 1 : 0);
    quint64 value = 0;
    for (qsizetype i = skipSign(text, 0); isDecimalDigit(text, i); ++i) {
        const quint64 digit = quint64(digitValue(text[i]));
        value = value > (limit - digit) / 10 ? limit : value * 10 + digit;
    }
    return qint64(negative ? 0 - value : value);
}

bool ZelNumberScanner::isInteger(QStringView text)
{
    text = withoutLeadingBlanks(text);
    if (text.startsWith(u"0x", Qt::CaseInsensitive)) {
        const QStringView digits = text.sliced(2);
        return !digits.isEmpty() &&
               std::all_of(digits.begin(), digits.end(), [](QChar c) { return digitValue(c) < 16; });
    }
    const qsizetype start = skipSign(text, 0);
    return start < text.size() && skipDigits(text, start) == text.size();
}

std::optional<quint64> ZelNumberScanner::hexadecimal(QStringView text)
{
    text = withoutLeadingBlanks(text);
    if (text.startsWith(u"0x", Qt::CaseInsensitive))
        text = text.sliced(2);
    constexpr quint64 limit = std::numeric_limits<quint64>::max();
    quint64 value = 0;
    qsizetype i = 0;
    for (; i < text.size() && digitValue(text[i]) < 16; ++i)
        value = value > (limit >> 4) ? limit : (value << 4) | quint64(digitValue(text[i]));
    if (i == 0)
        return std::nullopt;
    return value;
}

double ZelNumberScanner::real(QStringView text)
{
    text = withoutLeadingBlanks(text);
    const QStringView number = text.first(realLength(text));
    // Most numbers are whole ones of a few digits, which need no rounding.
    if (number.size() < std::numeric_limits<double>::digits10 && skipDigits(number, 0) == number.size())
        return double(integer(number));
    const double value = number.toDouble();
    constexpr double largest = std::numeric_limits<double>::max();
    return std::clamp(value, -largest, largest);
}
