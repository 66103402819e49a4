// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelTypedText.h"

#include "Controls/Fields/ZelNumberFormatter.h"
#include "Core/Values/ZelGeometryType.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelNumberScanner.h"
#include "Core/Values/private/ZelNumberTypes.h"
#include "Core/Values/private/ZelTextForm.h"
#include "Core/Values/private/ZelValueConversion.h"
#include "Resources/ZelColor.h"
#include "Resources/ZelLocalizedString.h"
#include "Text/ZelAttributedString.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <limits>

namespace {

using Value = std::optional<QVariant>;
using NumberReader = std::optional<double> (*)(const QString &text);

std::optional<double> describedNumber(const QString &text)
{
    bool isNumber = false;
    const double number = QLocale::c().toDouble(text.trimmed(), &isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

ZelNumberFormatter formatter()
{
    ZelNumberFormatter numbers;
    numbers.setUsesGroupSeparator(true);
    numbers.setMaximumFractionDigits(std::numeric_limits<double>::max_digits10);
    return numbers;
}

std::optional<double> enteredNumber(const QString &text)
{
    QVariant number;
    QString error;
    const bool isRead = formatter().objectValueForString(text, &number, &error) && ZelIsNumber(number);
    return isRead ? std::optional(number.toDouble()) : std::nullopt;
}

bool isOneOf(const QString &text, const QStringList &words)
{
    return words.contains(text.trimmed(), Qt::CaseInsensitive);
}

Value boolean(const QString &text)
{
    if (isOneOf(text, {QStringLiteral("yes"), QStringLiteral("true"), QStringLiteral("1")}))
        return true;
    if (isOneOf(text, {QStringLiteral("no"), QStringLiteral("false"), QStringLiteral("0")}))
        return false;
    return std::nullopt;
}

Value color(const QString &text)
{
    const QColor color(text.trimmed());
    return color.isValid() ? Value(color) : std::nullopt;
}

/// A family alone is a font, too; QFont's own reading takes anything.
Value font(const QString &text)
{
    const QStringList parts = text.split(u',');
    bool isSize = parts.size() == 1;
    if (parts.size() > 1)
        (void)parts.at(1).trimmed().toDouble(&isSize);
    QFont font;
    if (!isSize || parts.first().trimmed().isEmpty() || !font.fromString(text.trimmed()))
        return std::nullopt;
    return font;
}

Value texts(const QString &text)
{
    QStringList list = text.split(u',', Qt::SkipEmptyParts);
    std::for_each(list.begin(), list.end(), [](QString &item) { item = item.trimmed(); });
    return list;
}

Value richText(const QString &text)
{
    return ZelAttributedString(text).toVariant();
}

struct Reader
{
    QMetaType type;
    Value (*read)(const QString &text);
};

/// The types whose texts Qt does not convert, or not as is wanted here.
Value (*readerOf(QMetaType type))(const QString &text)
{
    static const Reader readers[] = {
        {QMetaType::fromType<bool>(), &boolean},
        {QMetaType::fromType<QColor>(), &color},
        {QMetaType::fromType<ZelColor>(), &color},
        {QMetaType::fromType<QFont>(), &font},
        {QMetaType::fromType<QStringList>(), &texts},
        {QMetaType::fromType<QVariantList>(), &texts},
        {QMetaType::fromType<ZelAttributedString>(), &richText},
    };
    const auto *found = std::ranges::find(readers, type, &Reader::type);
    return found == std::end(readers) ? nullptr : found->read;
}

Value geometry(const QStringList &parts, const ZelGeometryType &type, NumberReader readNumber)
{
    if (parts.size() != type.count)
        return std::nullopt;
    ZelGeometryType::Numbers numbers{};
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const std::optional<double> number = readNumber(parts.at(i));
        if (!number)
            return std::nullopt;
        numbers[size_t(i)] = *number;
    }
    QVariant value(type.type);
    type.store(numbers, value.data());
    return value;
}

Value converted(QVariant value, QMetaType type)
{
    return ZelValueConversion::convert(value, type) == ZelValueConversion::Fits ? Value(value) : std::nullopt;
}

/// Qt reads a year of two digits as one of the twentieth century. The nearest one is meant.
QDateTime withNearestCentury(const QDateTime &time, const QString &text)
{
    const int year = time.date().year();
    const bool isShort = year >= 1900 && year < 2000 && !text.contains(QString::number(year));
    return isShort && year + 50 < QDate::currentDate().year() ? time.addYears(100) : time;
}

Value enteredDate(const QString &text, QMetaType type)
{
    for (const QLocale::FormatType format : {QLocale::ShortFormat, QLocale::LongFormat}) {
        const QLocale locale;
        const QDateTime time = locale.toDateTime(text, format);
        const QDate date = locale.toDate(text, format);
        if (time.isValid() || date.isValid())
            return converted(withNearestCentury(time.isValid() ? time : date.startOfDay(), text), type);
    }
    return std::nullopt;
}

QString textOfNumber(const QVariant &value)
{
    return value.typeId() == QMetaType::Bool ? ZelLocalizedString(value.toBool() ? "Yes" : "No")
                                             : formatter().stringForObjectValue(value);
}

QString textOfGeometry(const QVariant &value, const ZelGeometryType &type)
{
    ZelGeometryType::Numbers numbers{};
    type.load(value.constData(), numbers);
    QStringList texts;
    for (int i = 0; i < type.count; ++i)
        texts.append(formatter().stringForObjectValue(numbers[size_t(i)]));
    return ZelTypedText::joined(texts);
}

QString textOfList(const QVariantList &values)
{
    QStringList texts;
    for (const QVariant &value : values)
        texts.append(ZelTypedText::of(value));
    return texts.join(QStringLiteral(", "));
}

} // namespace

std::optional<QVariant> ZelTypedText::described(const QString &text, QMetaType type)
{
    if (const auto read = readerOf(type)) {
        const Value value = read(text);
        return value ? converted(*value, type) : std::nullopt;
    }
    if (const ZelGeometryType *known = ZelGeometryType::find(type))
        return geometry(text.split(QRegularExpression(QStringLiteral("[,;\\s]+")), Qt::SkipEmptyParts), *known,
                        &describedNumber);
    const bool isInteger = type.id() != QMetaType::QString && ZelNumberScanner::isInteger(text);
    if (isInteger && ZelNumberScanner::isHexadecimal(text))
        return converted(ZelNumberScanner::hexadecimal(text).value_or(0), type);
    if (isInteger && type.flags().testFlag(QMetaType::IsEnumeration))
        return converted(ZelNumberScanner::integer(text), type);
    return converted(text, type);
}

std::optional<QVariant> ZelTypedText::entered(const QString &text, QMetaType type)
{
    switch (type.id()) {
    case QMetaType::Bool:
        if (isOneOf(text, {ZelLocalizedString("Yes"), ZelLocalizedString("On")}))
            return true;
        if (isOneOf(text, {ZelLocalizedString("No"), ZelLocalizedString("Off")}))
            return false;
        break;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        if (const Value date = enteredDate(text, type))
            return date;
        break;
    default:
        if (const ZelGeometryType *known = ZelGeometryType::find(type))
            return geometry(ZelTypedText::numbersIn(text), *known, &enteredNumber);
        if (ZelValueConversion::limits(type).isValid() || type.id() == QMetaType::Double) {
            QVariant number;
            QString error;
            if (formatter().objectValueForString(text, &number, &error) && ZelIsNumber(number))
                return converted(number, type);
        }
        break;
    }
    return described(text, type);
}

QString ZelTypedText::of(const QVariant &value)
{
    if (ZelIsNull(value) || ZelIsControllerMarker(value))
        return {};
    if (const ZelGeometryType *type = ZelGeometryType::find(value.metaType()))
        return textOfGeometry(value, *type);
    if (ZelColor::isColor(value)) {
        const QColor color = ZelColor::fromVariant(value).toQColor();
        return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
    }
    if (ZelTextForm::has(value.metaType()))
        return ZelTextForm::of(value);
    switch (value.typeId()) {
    case QMetaType::QDate:
        return QLocale().toString(value.toDate(), QLocale::ShortFormat);
    case QMetaType::QDateTime:
        return QLocale().toString(value.toDateTime(), QLocale::ShortFormat);
    case QMetaType::QFont:
        return value.value<QFont>().toString();
    default:
        break;
    }
    if (ZelIsNumber(value))
        return textOfNumber(value);
    return ZelIsList(value) ? textOfList(ZelList(value)) : value.toString();
}

QStringList ZelTypedText::numbersIn(const QString &text)
{
    const QString whole = text.trimmed();
    if (whole.isEmpty())
        return {};
    const QList<QStringList> parts = enteredNumber(whole) ? QList<QStringList>() : splits(whole);
    return parts.isEmpty() ? QStringList{whole} : parts.first();
}

QList<QStringList> ZelTypedText::splits(const QString &text)
{
    static const QRegularExpression strong(QStringLiteral("\\s*[;\\t\\r\\n]\\s*"));
    static const QRegularExpression comma(QStringLiteral("\\s*,\\s+"));
    static const QRegularExpression tight(QStringLiteral("\\s*,\\s*"));
    // A blank separates where a number begins after it: "10 pt 20 pt".
    static const QRegularExpression blank(QStringLiteral("\\s+(?=[-+.,]?\\d)"));
    const bool isCommaFree = QLocale().decimalPoint() != QStringLiteral(",");
    QList<QStringList> result;
    for (const QRegularExpression *separator : {&strong, &comma, isCommaFree ? &tight : &blank, &blank}) {
        const QStringList parts = text.trimmed().split(*separator, Qt::SkipEmptyParts);
        if (parts.size() > 1 && !result.contains(parts))
            result.append(parts);
    }
    return result;
}

QString ZelTypedText::joined(const QStringList &numbers)
{
    return numbers.join(QLocale().decimalPoint() == QStringLiteral(",") ? QStringLiteral("; ") : QStringLiteral(", "));
}
