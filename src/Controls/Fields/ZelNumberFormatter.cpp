// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelNumberFormatter.h"

#include "Controls/Fields/ZelNumberExpression.h"
#include "Core/Values/ZelNumberChange.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelExactInteger.h"
#include "Resources/ZelLocalizedString.h"

#include <QRegularExpression>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

constexpr int g_digitsMaximum = 308;
const QChar g_minus(0x2212);

/// A decimal number: 0.d1d2d3... times 10 to the power of `point`.
struct Decimal
{
    std::string digits;
    int point = 0;
    bool negative = false;
};

Decimal decimalOf(double value)
{
    // The shortest digits that mean this double, as d.ddde+xx.
    char text[64];
    const char *end = std::to_chars(text, text + sizeof text, std::abs(value), std::chars_format::scientific).ptr;
    const char *exponent = std::find(static_cast<const char *>(text), end, 'e');
    Decimal decimal{{}, 0, std::signbit(value)};
    std::copy_if(static_cast<const char *>(text), exponent, std::back_inserter(decimal.digits),
                 [](char c) { return c != '.'; });
    decimal.point = QByteArray(exponent + 1, end - exponent - 1).toInt() + 1;
    return decimal;
}

Decimal decimalOf(QByteArray integer)
{
    Decimal decimal;
    decimal.negative = integer.startsWith('-');
    decimal.digits = integer.mid(decimal.negative ? 1 : 0).toStdString();
    decimal.point = int(decimal.digits.size());
    return decimal;
}

void increase(Decimal &decimal)
{
    for (auto digit = decimal.digits.rbegin(); digit != decimal.digits.rend(); ++digit) {
        if (++*digit <= '9')
            return;
        *digit = '0';
    }
    decimal.digits.insert(0, 1, '1');
    ++decimal.point;
}

void roundHalfEven(Decimal &decimal, int fractionDigits)
{
    const int kept = decimal.point + fractionDigits;
    if (kept >= int(decimal.digits.size()))
        return;
    if (kept < 0) {
        decimal.digits.clear();
        return;
    }
    const std::string rest = decimal.digits.substr(size_t(kept));
    decimal.digits.resize(size_t(kept));
    const bool half = rest.front() == '5' && rest.find_first_not_of('0', 1) == std::string::npos;
    const bool odd = kept > 0 && (decimal.digits.back() - '0') % 2;
    if (half ? odd : rest.front() >= '5')
        increase(decimal);
}

/// The places, counted from the end, at which the digits of an integer have a separator. Locales differ in the length
/// of the groups and in the shortest number that has any, and Qt tells neither: so the locale formats an example.
QList<int> separatorPlaces(int length, const QLocale &locale)
{
    const QString separator = locale.groupSeparator();
    const auto lengthsOf = [&](qlonglong number) {
        QList<int> lengths;
        const QStringList groups = locale.toString(number).split(separator);
        for (const QString &group : groups)
            lengths.prepend(int(group.size() / qMax<qsizetype>(1, locale.zeroDigit().size())));
        return lengths;
    };
    const QList<int> example = lengthsOf(1000000000000000);
    if (separator.isEmpty() || example.size() < 3 || (length == 4 && lengthsOf(1000).size() == 1))
        return {};
    QList<int> places;
    for (int place = example.at(0); place < length; place += example.at(1))
        places.append(place);
    return places;
}

bool hasGroups(const QLocale &locale)
{
    return !locale.numberOptions().testFlag(QLocale::OmitGroupSeparator);
}

QString localized(const Decimal &decimal, int minimumFractionDigits, const QLocale &locale, bool groups)
{
    std::string digits = decimal.digits;
    int point = decimal.point;
    if (point < 0) {
        digits.insert(0, size_t(-point), '0');
        point = 0;
    }
    if (int(digits.size()) < point)
        digits.append(size_t(point) - digits.size(), '0');
    std::string integer = digits.substr(0, size_t(point));
    std::string fraction = digits.substr(size_t(point));
    fraction.resize(fraction.find_last_not_of('0') + 1);
    fraction.resize(std::max(fraction.size(), size_t(minimumFractionDigits)), '0');
    integer.erase(0, integer.find_first_not_of('0'));
    const bool zero = integer.empty() && fraction.find_first_not_of('0') == std::string::npos;
    if (integer.empty())
        integer = "0";

    QString text = decimal.negative && !zero ? locale.negativeSign() : QString();
    const auto append = [&text, zeroDigit = locale.zeroDigit()](const std::string &asciiDigits,
                                                                const QList<int> &places = {},
                                                                const QString &separator = {}) {
        int place = int(asciiDigits.size());
        for (const char digit : asciiDigits) {
            if (places.contains(place))
                text += separator;
            --place;
            if (zeroDigit.size() == 1)
                text += QChar(zeroDigit.at(0).unicode() + (digit - '0'));
            else
                text += QLatin1Char(digit);
        }
    };
    if (groups && integer.size() > 3)
        append(integer, separatorPlaces(int(integer.size()), locale), locale.groupSeparator());
    else
        append(integer);
    if (!fraction.empty()) {
        text += locale.decimalPoint();
        append(fraction);
    }
    return text;
}

bool isInteger(const QVariant &value)
{
    const int type = value.typeId();
    return type != QMetaType::Double && type != QMetaType::Float;
}

QVariant parsed(const QString &text, const QLocale &locale)
{
    bool ok = false;
    const double number = locale.toDouble(text, &ok);
    if (!ok || !std::isfinite(number))
        return {};
    constexpr double largestExact = 9007199254740992.0;
    if (std::abs(number) >= largestExact) {
        if (const qlonglong integer = locale.toLongLong(text, &ok); ok)
            return integer;
        if (const qulonglong integer = locale.toULongLong(text, &ok); ok)
            return integer;
    }
    return number;
}

/// Whether a text is meant as a calculation, so that it is worth saying what is wrong with it.
bool looksLikeExpression(const QString &text)
{
    static const QRegularExpression marks(QStringLiteral("\\d|\\(|\\b(x|i|n|pi)\\b|^\\s*[-−+*×·/÷]="),
                                          QRegularExpression::UseUnicodePropertiesOption);
    return marks.match(text).hasMatch();
}

} // namespace

void ZelNumberFormatter::setMinimumFractionDigits(int digits)
{
    m_minimumFractionDigits = std::clamp(digits, 0, g_digitsMaximum);
    m_maximumFractionDigits = std::max(m_minimumFractionDigits, m_maximumFractionDigits);
}

void ZelNumberFormatter::setMaximumFractionDigits(int digits)
{
    m_maximumFractionDigits = std::clamp(digits, 0, g_digitsMaximum);
    m_minimumFractionDigits = std::min(m_minimumFractionDigits, m_maximumFractionDigits);
}

QString ZelNumberFormatter::stringForObjectValue(const QVariant &value) const
{
    if (ZelIsNull(value))
        return {};
    if (!ZelIsNumber(value))
        return value.toString();
    if (isInteger(value)) {
        const bool isUnsigned = value.typeId() == QMetaType::ULongLong || value.typeId() == QMetaType::ULong;
        const QByteArray digits =
            isUnsigned ? QByteArray::number(value.toULongLong()) : QByteArray::number(value.toLongLong());
        return localized(decimalOf(digits), m_minimumFractionDigits, locale(),
                         m_usesGroupSeparator && hasGroups(locale()));
    }
    const double number = value.toDouble();
    if (std::isnan(number))
        return QStringLiteral("NaN");
    if (std::isinf(number))
        return (number < 0 ? locale().negativeSign() : QString()) + QChar(0x221e);
    Decimal decimal = decimalOf(number);
    roundHalfEven(decimal, m_maximumFractionDigits);
    return localized(decimal, m_minimumFractionDigits, locale(), m_usesGroupSeparator && hasGroups(locale()));
}

QLocale ZelNumberFormatter::parsingLocale() const
{
    QLocale locale = this->locale();
    if (!m_usesGroupSeparator || !hasGroups(locale))
        locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    else
        locale.setNumberOptions(QLocale::DefaultNumberOptions);
    return locale;
}

std::optional<QVariant> ZelNumberFormatter::readNumber(const QString &text) const
{
    QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return QVariant();
    const QLocale locale = parsingLocale();
    QVariant number = parsed(trimmed, locale);
    if (!number.isValid()) {
        // Keyboards have a hyphen. Pasted texts may have a true minus sign. Locales have either, some with a direction
        // mark before it.
        trimmed.replace(locale.negativeSign(), QLatin1String("-")).replace(g_minus, QLatin1Char('-'));
        // No keyboard has the narrow blanks that some locales put between groups of digits.
        const QString separator = locale.groupSeparator();
        if (separator.size() == 1 && separator.at(0).isSpace())
            trimmed.replace(QLatin1Char(' '), separator).replace(QChar(QChar::Nbsp), separator);
        number = parsed(trimmed, locale);
    }
    return number.isValid() ? std::optional(number) : std::nullopt;
}

/// The integer that "+=" or "-=" adds; nothing for any other calculation.
std::optional<qlonglong> ZelNumberFormatter::readAddend(const QString &text) const
{
    const QString trimmed = text.trimmed();
    const bool adds = trimmed.startsWith(u"+=");
    if (!adds && !trimmed.startsWith(u"-="))
        return std::nullopt;
    const QVariant number = readNumber(trimmed.mid(2)).value_or(QVariant());
    const double size = number.toDouble();
    const bool isInteger = number.typeId() == QMetaType::LongLong ||
                           (number.typeId() == QMetaType::Double && size == std::trunc(size) && std::abs(size) < 1e15);
    const qlonglong addend = number.toLongLong();
    if (!isInteger || addend == std::numeric_limits<qlonglong>::min())
        return std::nullopt;
    return adds ? addend : -addend;
}

bool ZelNumberFormatter::readExpression(const QString &text, const QString &unit, QVariant *value, QString *error) const
{
    const QString noNumber = ZelLocalizedString(QStringLiteral("This is not a number."));
    QString reason = noNumber;
    const auto expression = m_readsExpressions && looksLikeExpression(text)
                                ? ZelNumberExpression::fromText(text, unit, locale(), &reason)
                                : ZelNumberExpression();
    if (expression.isRelative()) {
        const auto number = [expression](double own, qsizetype index, qsizetype count) {
            return expression.value(own, index, count);
        };
        ZelNumberChange change(number, expression.usesPlace());
        if (const std::optional<qlonglong> addend = readAddend(text))
            change.setExactFunction([addend](const QVariant &own) { return ZelExactInteger::sum(own, *addend); });
        *value = QVariant::fromValue(change);
        return true;
    }
    const double number = expression.value();
    if (std::isfinite(number))
        *value = number;
    else if (error)
        *error = expression.isNull() ? reason : ZelLocalizedString(QStringLiteral("The result is not a number."));
    return std::isfinite(number);
}

bool ZelNumberFormatter::objectValueForString(const QString &text, QVariant *value, QString *error) const
{
    const std::optional<QVariant> number = readNumber(text);
    if (!number)
        return readExpression(text, {}, value, error);
    *value = *number;
    return true;
}
