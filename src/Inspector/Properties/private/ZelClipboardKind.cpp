// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelClipboardKind.h"

#include "Core/Values/ZelGeometryType.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelNumberTypes.h"
#include "Core/Values/private/ZelTextForm.h"
#include "Core/Values/private/ZelValueConversion.h"
#include "Resources/ZelColor.h"
#include "Text/ZelParagraphStyle.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QJsonArray>
#include <QJsonObject>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QTimeZone>
#include <QUrl>
#include <algorithm>
#include <cmath>

namespace {

constexpr qsizetype g_maximumTabStops = 1000;

using Value = ZelClipboardKind::Value;
using Json = ZelClipboardKind::Json;

QString textOf(double number)
{
    return QString::number(number, 'g', 17);
}

std::optional<double> numberIn(const QJsonValue &json)
{
    bool isNumber = false;
    const double number = json.toString().toDouble(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

QJsonArray arrayOf(const auto &numbers)
{
    QJsonArray array;
    for (double number : numbers)
        array.append(textOf(number));
    return array;
}

std::optional<QList<double>> numbersIn(const QJsonValue &json, qsizetype maximum)
{
    const QJsonArray array = json.toArray();
    if (!json.isArray() || array.size() > maximum)
        return std::nullopt;
    QList<double> numbers;
    for (const QJsonValue &item : array) {
        const auto number = numberIn(item);
        if (!number)
            return std::nullopt;
        numbers.append(*number);
    }
    return numbers;
}

// The kinds, one after the other

Json writeNone(const QVariant &value, int)
{
    return ZelIsNull(value) ? Json(QJsonValue(QJsonValue::Null)) : std::nullopt;
}
Value readNone(const QJsonValue &, int)
{
    return QVariant();
}

Json writeBoolean(const QVariant &value, int)
{
    return value.typeId() == QMetaType::Bool ? Json(value.toBool()) : std::nullopt;
}
Value readBoolean(const QJsonValue &json, int)
{
    return json.isBool() ? Value(json.toBool()) : std::nullopt;
}

Json writeReal(const QVariant &value, int)
{
    return ZelNumberTypes::isFloating(value.typeId()) ? Json(textOf(value.toDouble())) : std::nullopt;
}
Value readReal(const QJsonValue &json, int)
{
    const auto number = numberIn(json);
    return number ? Value(*number) : std::nullopt;
}

Json writeInteger(const QVariant &value, int)
{
    if (!ZelIsNumber(value))
        return std::nullopt;
    return ZelNumberTypes::isUnsigned(value.typeId()) ? Json(QString::number(value.toULongLong()))
                                                      : Json(QString::number(value.toLongLong()));
}
Value readInteger(const QJsonValue &json, int)
{
    bool isNumber = false;
    if (const qlonglong number = json.toString().toLongLong(&isNumber); isNumber)
        return number;
    const qulonglong number = json.toString().toULongLong(&isNumber);
    return isNumber ? Value(number) : std::nullopt;
}

/// The name of the type, which another program may not know, and the number.
Json writeEnumeration(const QVariant &value, int)
{
    if (!value.metaType().flags().testFlag(QMetaType::IsEnumeration))
        return std::nullopt;
    return QJsonArray{QString::fromLatin1(value.metaType().name()), QString::number(value.toLongLong())};
}
Value readEnumeration(const QJsonValue &json, int)
{
    bool isNumber = false;
    QVariant value = json[1].toString().toLongLong(&isNumber);
    const QMetaType type = QMetaType::fromName(json[0].toString().toLatin1());
    if (type.flags().testFlag(QMetaType::IsEnumeration) &&
        ZelValueConversion::convert(value, type) != ZelValueConversion::Fits)
        return std::nullopt;
    return isNumber ? Value(value) : std::nullopt;
}

Json writeText(const QVariant &value, int)
{
    return value.typeId() == QMetaType::QString ? Json(value.toString()) : std::nullopt;
}
Value readText(const QJsonValue &json, int)
{
    return json.isString() ? Value(json.toString()) : std::nullopt;
}

Json writeUrl(const QVariant &value, int)
{
    return value.typeId() == QMetaType::QUrl ? Json(value.toUrl().toString()) : std::nullopt;
}
Value readUrl(const QJsonValue &json, int)
{
    const QUrl url(json.toString(), QUrl::StrictMode);
    return url.isValid() ? Value(url) : std::nullopt;
}

Json writeBytes(const QVariant &value, int)
{
    return value.typeId() == QMetaType::QByteArray ? Json(QString::fromLatin1(value.toByteArray().toBase64()))
                                                   : std::nullopt;
}
Value readBytes(const QJsonValue &json, int)
{
    const auto bytes =
        QByteArray::fromBase64Encoding(json.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return json.isString() && bytes ? Value(*bytes) : std::nullopt;
}

Json writeDate(const QVariant &value, int)
{
    return value.typeId() == QMetaType::QDate ? Json(value.toDate().toString(Qt::ISODate)) : std::nullopt;
}
Value readDate(const QJsonValue &json, int)
{
    const QDate date = QDate::fromString(json.toString(), Qt::ISODate);
    return date.isValid() ? Value(date) : std::nullopt;
}

Json writeTime(const QVariant &value, int)
{
    return value.typeId() == QMetaType::QTime ? Json(value.toTime().toString(Qt::ISODateWithMs)) : std::nullopt;
}
Value readTime(const QJsonValue &json, int)
{
    const QTime time = QTime::fromString(json.toString(), Qt::ISODateWithMs);
    return time.isValid() ? Value(time) : std::nullopt;
}

/// A moment: date and time of its own zone, and the zone, which is empty for the local one.
Json writeMoment(const QVariant &value, int)
{
    if (value.typeId() != QMetaType::QDateTime)
        return std::nullopt;
    const QDateTime time = value.toDateTime();
    const QString zone = time.timeSpec() == Qt::LocalTime       ? QString()
                         : time.timeSpec() == Qt::UTC           ? QStringLiteral("UTC")
                         : time.timeSpec() == Qt::OffsetFromUTC ? QString::number(time.offsetFromUtc())
                                                                : QString::fromLatin1(time.timeZone().id());
    return QJsonArray{time.date().toString(Qt::ISODate), time.time().toString(Qt::ISODateWithMs), zone};
}
Value readMoment(const QJsonValue &json, int)
{
    const QDate date = QDate::fromString(json[0].toString(), Qt::ISODate);
    const QTime time = QTime::fromString(json[1].toString(), Qt::ISODateWithMs);
    const QString zone = json[2].toString();
    bool isOffset = false;
    const int offset = zone.toInt(&isOffset);
    const bool isKnown = isOffset || zone.isEmpty() || zone == u"UTC" || QTimeZone(zone.toLatin1()).isValid();
    if (!date.isValid() || !time.isValid() || !isKnown)
        return std::nullopt;
    if (isOffset)
        return QDateTime(date, time, Qt::OffsetFromUTC, offset);
    if (zone.isEmpty() || zone == u"UTC")
        return QDateTime(date, time, zone.isEmpty() ? Qt::LocalTime : Qt::UTC);
    return QDateTime(date, time, QTimeZone(zone.toLatin1()));
}

/// A QColor: its kind, and its components in the order in which QColor gives them.
Json writeColor(const QVariant &value, int)
{
    if (value.typeId() != QMetaType::QColor)
        return std::nullopt;
    const QColor color = value.value<QColor>();
    float parts[5] = {};
    switch (color.spec()) {
    case QColor::Hsv:
        color.getHsvF(parts, parts + 1, parts + 2, parts + 3);
        break;
    case QColor::Hsl:
        color.getHslF(parts, parts + 1, parts + 2, parts + 3);
        break;
    case QColor::Cmyk:
        color.getCmykF(parts, parts + 1, parts + 2, parts + 3, parts + 4);
        break;
    default:
        color.getRgbF(parts, parts + 1, parts + 2, parts + 3);
        break;
    }
    QJsonArray array = arrayOf(parts);
    array.prepend(QString::number(int(color.spec())));
    return array;
}
Value readColor(const QJsonValue &json, int)
{
    const auto numbers = numbersIn(json, 6);
    if (!numbers || numbers->size() != 6)
        return std::nullopt;
    const auto part = [&](qsizetype i) { return float(numbers->at(i + 1)); };
    const double spec = numbers->first();
    const bool hasHue = spec == double(QColor::Hsv) || spec == double(QColor::Hsl);
    for (qsizetype i = 0; i < 5; ++i) {
        const bool isAchromatic = i == 0 && hasHue && part(i) == -1.0F;
        const bool isWide = spec == double(QColor::ExtendedRgb) && std::isfinite(part(i));
        if (!(part(i) >= 0 && part(i) <= 1) && !isAchromatic && !isWide)
            return std::nullopt;
    }
    QColor color;
    if (spec == double(QColor::Hsv))
        color.setHsvF(part(0), part(1), part(2), part(3));
    else if (spec == double(QColor::Hsl))
        color.setHslF(part(0), part(1), part(2), part(3));
    else if (spec == double(QColor::Cmyk))
        color.setCmykF(part(0), part(1), part(2), part(3), part(4));
    else
        color.setRgbF(part(0), part(1), part(2), part(3));
    return color.isValid() ? Value(color) : std::nullopt;
}

Json writeSpaceColor(const QVariant &value, int)
{
    if (value.typeId() != QMetaType::fromType<ZelColor>().id())
        return std::nullopt;
    const auto color = value.value<ZelColor>();
    if (color.space() == ZelColor::Named)
        return QJsonArray{color.listName(), color.key()};
    return QJsonArray{int(color.space()), arrayOf(color.components())};
}
Value readSpaceColor(const QJsonValue &json, int)
{
    if (json[0].isString() && json[1].isString())
        return ZelColor::named(json[0].toString(), json[1].toString()).toVariant();
    const int space = json[0].toInt(-1);
    const auto components = numbersIn(json[1], 16);
    if (!components || space <= ZelColor::Invalid || space >= ZelColor::Named)
        return std::nullopt;
    return ZelColor(ZelColor::Space(space), *components).toVariant();
}

/// What a font leaves open is not in its text.
Json writeFont(const QVariant &value, int)
{
    if (value.typeId() != QMetaType::QFont)
        return std::nullopt;
    const auto font = value.value<QFont>();
    return QJsonArray{font.toString(), QString::number(font.resolveMask())};
}
Value readFont(const QJsonValue &json, int)
{
    const QString text = json[0].toString();
    bool hasMask = false;
    const uint mask = json[1].toString().toUInt(&hasMask);
    QFont font;
    if (!hasMask || text.size() > 1000 || !text.contains(u',') || !font.fromString(text))
        return std::nullopt;
    const double size = std::max(font.pointSizeF(), double(font.pixelSize()));
    font.setResolveMask(mask);
    return size > 0 && size <= 10000 ? Value(font) : std::nullopt;
}

Json writeGeometry(const QVariant &value, int)
{
    const ZelGeometryType *type = ZelGeometryType::find(value.metaType());
    if (!type)
        return std::nullopt;
    ZelGeometryType::Numbers numbers{};
    type->load(value.constData(), numbers);
    QJsonArray array = arrayOf(numbers);
    while (array.size() > type->count)
        array.removeLast();
    array.prepend(QString::fromLatin1(value.metaType().name()));
    return array;
}
Value readGeometry(const QJsonValue &json, int)
{
    QJsonArray array = json.toArray();
    const QByteArray name = array.isEmpty() ? QByteArray() : array.takeAt(0).toString().toLatin1();
    const ZelGeometryType *type = ZelGeometryType::find(QMetaType::fromName(name));
    const auto parts = numbersIn(array, 4);
    if (!type || !parts || parts->size() != type->count)
        return std::nullopt;
    ZelGeometryType::Numbers numbers{};
    std::copy(parts->begin(), parts->end(), numbers.begin());
    QVariant value(type->type);
    type->store(numbers, value.data());
    return value;
}

/// Locales, time zones, key sequences, and regular expressions with their options.
Json writeTextForm(const QVariant &value, int)
{
    if (!ZelTextForm::has(value.metaType()))
        return std::nullopt;
    const bool isExpression = value.typeId() == QMetaType::QRegularExpression;
    const int options = isExpression ? int(value.toRegularExpression().patternOptions()) : 0;
    return QJsonArray{QString::fromLatin1(value.metaType().name()), ZelTextForm::of(value), QString::number(options)};
}
Value readTextForm(const QJsonValue &json, int)
{
    const QMetaType type = ZelTextForm::typeNamed(json[0].toString().toLatin1());
    const QString text = json[1].toString();
    if (!type.isValid() || text.size() > 10000)
        return std::nullopt;
    if (type.id() != QMetaType::QRegularExpression)
        return ZelTextForm::read(text, type);
    const QRegularExpression expression(text, QRegularExpression::PatternOptions(json[2].toString().toInt()));
    return expression.isValid() ? Value(expression) : std::nullopt;
}

/// A list of texts, which has a type of its own.
Json writeTexts(const QVariant &value, int)
{
    return value.typeId() == QMetaType::QStringList ? Json(QJsonArray::fromStringList(value.toStringList()))
                                                    : std::nullopt;
}
Value readTexts(const QJsonValue &json, int)
{
    const QJsonArray array = json.toArray();
    const bool isOfTexts =
        std::all_of(array.begin(), array.end(), [](const QJsonValue &item) { return item.isString(); });
    return json.isArray() && isOfTexts && array.size() <= ZelClipboardKind::maximumElements
               ? Value(json.toVariant().toStringList())
               : std::nullopt;
}

Json writeParagraph(const QVariant &value, int)
{
    if (value.typeId() != QMetaType::fromType<ZelParagraphStyle>().id())
        return std::nullopt;
    const auto style = value.value<ZelParagraphStyle>();
    const QMetaObject &type = ZelParagraphStyle::staticMetaObject;
    QJsonObject object;
    for (int i = 0; i < type.propertyCount(); ++i)
        object.insert(QString::fromLatin1(type.property(i).name()),
                      textOf(type.property(i).readOnGadget(&style).toDouble()));
    QJsonArray stops;
    for (const QTextOption::Tab &tab : style.tabStops)
        stops.append(QJsonArray{textOf(tab.position), QString::number(int(tab.type)), QString(tab.delimiter)});
    object.insert(QStringLiteral("tabStops"), stops);
    return object;
}
Value readParagraph(const QJsonValue &json, int)
{
    ZelParagraphStyle style;
    const QMetaObject &type = ZelParagraphStyle::staticMetaObject;
    for (int i = 0; i < type.propertyCount(); ++i) {
        const auto number = numberIn(json[QString::fromLatin1(type.property(i).name())]);
        const bool isUnsigned = type.property(i).typeId() == QMetaType::UInt;
        if (!number || !std::isfinite(*number) || std::abs(*number) > 1e6 || (isUnsigned && *number < 0) ||
            !type.property(i).writeOnGadget(&style, QVariant(*number)))
            return std::nullopt;
    }
    const QJsonArray stops = json[QStringLiteral("tabStops")].toArray();
    if (stops.size() > g_maximumTabStops)
        return std::nullopt;
    for (const QJsonValue &stop : stops) {
        const auto position = numberIn(stop[0]);
        const int kind = stop[1].toString().toInt();
        if (!position || kind < QTextOption::LeftTab || kind > QTextOption::DelimiterTab)
            return std::nullopt;
        const QString delimiter = stop[2].toString();
        style.tabStops.append({*position, QTextOption::TabType(kind), delimiter.isEmpty() ? QChar() : delimiter.at(0)});
    }
    return QVariant::fromValue(style);
}

} // namespace

std::span<const ZelClipboardKind> ZelClipboardKind::plainKinds()
{
    static constexpr ZelClipboardKind all[] = {
        {u"none", &writeNone, &readNone},
        {u"boolean", &writeBoolean, &readBoolean},
        {u"number", &writeReal, &readReal},
        {u"enumeration", &writeEnumeration, &readEnumeration},
        {u"integer", &writeInteger, &readInteger},
        {u"text", &writeText, &readText},
        {u"texts", &writeTexts, &readTexts},
        {u"url", &writeUrl, &readUrl},
        {u"bytes", &writeBytes, &readBytes},
        {u"date", &writeDate, &readDate},
        {u"time", &writeTime, &readTime},
        {u"moment", &writeMoment, &readMoment},
        {u"color", &writeColor, &readColor},
        {u"spaceColor", &writeSpaceColor, &readSpaceColor},
        {u"font", &writeFont, &readFont},
        {u"geometry", &writeGeometry, &readGeometry},
        {u"textForm", &writeTextForm, &readTextForm},
        {u"paragraph", &writeParagraph, &readParagraph},
    };
    return all;
}
