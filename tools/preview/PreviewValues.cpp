// SPDX-License-Identifier: MIT
#include "PreviewValues.h"

#include "Text/ZelAttributedString.h"

#include <QAction>
#include <QColor>
#include <QDate>
#include <QFont>
#include <QJsonArray>
#include <QLineF>
#include <QMarginsF>
#include <QMetaEnum>
#include <QRectF>
#include <QVector2D>
#include <QVector3D>
#include <QVector4D>
#include <cmath>
#include <limits>

using Kind = PreviewNeeds::Kind;

namespace {

/// "fillColor" gives "Fill color 1".
QString textFor(const QString &key, int index)
{
    QString text;
    for (const QChar letter : key)
        text += letter.isUpper() && !text.isEmpty() ? u' ' + QString(letter.toLower()) : QString(letter);
    text[0] = text.at(0).toUpper();
    return QStringLiteral("%1 %2").arg(text).arg(index + 1);
}

/// Between the limits, if there are any, and different for each index.
/// Limits as far off as those of a type tell nothing of usual values.
bool isNear(const std::optional<double> &limit)
{
    constexpr double far = 1e6;
    return limit && std::abs(*limit) < far;
}

double numberFor(const PreviewNeeds::Value &needed, int index)
{
    const double part = 0.25 + 0.2 * index;
    const double start = isNear(needed.minimum) ? *needed.minimum : 0;
    if (!isNear(needed.maximum) || *needed.maximum < start)
        return std::min(start + 10 * (index + 1), needed.maximum.value_or(std::numeric_limits<double>::max()));
    const double number = start + part * (*needed.maximum - start);
    return *needed.maximum - start >= 10 ? std::round(number) : number;
}

/// One choice of each editor.
qlonglong bitsFor(const PreviewNeeds::Value &needed, int index)
{
    qlonglong bits = needed.masked.isEmpty() ? index + 1 : 0;
    for (const QVariantList &choices : needed.masked)
        bits |= choices.at(index % choices.size()).toLongLong();
    return bits;
}

QColor colorFor(int index)
{
    static const QColor colors[] = {{0x4f, 0x86, 0xc6}, {0xd9, 0x6c, 0x4a}, {0x5a, 0xa4, 0x69}, {0xe0, 0xb0, 0x3f}};
    return colors[size_t(index) % std::size(colors)];
}

QVariant vectorFor(int components, int index)
{
    const QVector4D vector(1.0F + float(index), 2, 3, 4);
    return components == 2   ? QVariant(vector.toVector2D())
           : components == 4 ? QVariant(vector)
                             : QVariant(vector.toVector3D());
}

/// Of a few objects, each has another part of the keys, so that all keys occur.
int keysFor(const QMetaEnum &flags, int index)
{
    constexpr int objects = 3; // that differ; the index of one that equals another is that one's
    int bits = 0;
    for (int key = std::min(index, objects - 1); key < flags.keyCount(); key += objects)
        bits |= flags.value(key);
    return bits;
}

QList<double> numbersOf(const QJsonValue &json)
{
    QList<double> numbers;
    for (const QJsonValue &entry : json.toArray())
        numbers.append(entry.toDouble());
    return numbers;
}

QDate dateFor(int index)
{
    return QDate(2026, 1, 15).addDays(31 * index);
}

} // namespace

QVariant PreviewValues::invented(const QString &key, const PreviewNeeds::Value &needed, int index)
{
    switch (needed.kind) {
    case Kind::Condition:
        return true;
    case Kind::Boolean:
        return index % 2 == 0;
    case Kind::Bits:
        return bitsFor(needed, index);
    case Kind::Number:
        return numberFor(needed, index);
    case Kind::RichText:
        return QVariant::fromValue(ZelAttributedString(textFor(key, index)));
    case Kind::Choice:
        return needed.choices.isEmpty() ? QVariant(index) : needed.choices.at(index % needed.choices.size());
    case Kind::Color:
        return colorFor(index);
    case Kind::Date:
        return dateFor(index);
    case Kind::Font:
        return QFont(QStringLiteral("Sans"), 10 + 2 * index);
    case Kind::Size:
        return QSizeF(100 + 20 * index, 50 + 10 * index);
    case Kind::Frame:
        return QRectF(10 + 20 * index, 20, 100 + 20 * index, 50);
    case Kind::Margins:
        return QVariant::fromValue(QMarginsF(5, 10, 5 + index, 10));
    case Kind::Line:
        return QLineF(0, 10 * index, 100, 50);
    case Kind::Vector:
        return vectorFor(needed.components, index);
    case Kind::Texts:
        return QStringList{textFor(key, 0), textFor(key, 1), textFor(key, 2)};
    case Kind::Choices:
        return QVariantList{0, 1, 2};
    case Kind::Any:
    case Kind::Text:
    case Kind::Actions:
        break;
    }
    return textFor(key, index);
}

QVariant PreviewValues::invented(const QString &key, QMetaType type, int index)
{
    static const QHash<int, Kind> kinds = {
        {QMetaType::Bool, Kind::Boolean},      {QMetaType::QString, Kind::Text},   {QMetaType::QColor, Kind::Color},
        {QMetaType::QDate, Kind::Date},        {QMetaType::QDateTime, Kind::Date}, {QMetaType::QFont, Kind::Font},
        {QMetaType::QSizeF, Kind::Size},       {QMetaType::QSize, Kind::Size},     {QMetaType::QRectF, Kind::Frame},
        {QMetaType::QRect, Kind::Frame},       {QMetaType::Double, Kind::Number},  {QMetaType::Float, Kind::Number},
        {QMetaType::QStringList, Kind::Texts},
    };
    if (type.id() == QMetaType::QPointF || type.id() == QMetaType::QPoint) {
        QVariant point = QPointF(10 + 20 * index, 20);
        point.convert(type);
        return point;
    }
    if (type.flags().testFlag(QMetaType::IsEnumeration)) {
        const QMetaObject *scope = type.metaObject();
        const QMetaEnum known = scope ? scope->enumerator(0) : QMetaEnum();
        QVariant value = 0;
        if (known.isFlag())
            value = keysFor(known, index);
        else if (known.keyCount() > 0)
            value = index % known.keyCount();
        value.convert(type);
        return value;
    }
    PreviewNeeds::Value needed;
    needed.kind = kinds.value(type.id(), Kind::Bits);
    QVariant value = invented(key, needed, index);
    return value.convert(type) ? value : QVariant();
}

QVariantList PreviewValues::actions(QObject *parent)
{
    QVariantList all;
    for (const char *title : {"First", "Second", "Third"})
        all.append(QVariant::fromValue<QObject *>(new QAction(QString::fromLatin1(title), parent)));
    return all;
}

QVariant PreviewValues::fromJson(const QJsonValue &json, const PreviewNeeds::Value &needed)
{
    const QString text = json.toString();
    const QList<double> numbers = numbersOf(json);
    QFont font;
    switch (needed.kind) {
    case Kind::Color:
        return json.isString() ? QVariant(QColor(text)) : json.toVariant();
    case Kind::Date:
        return text.contains(u'T') ? QVariant(QDateTime::fromString(text, Qt::ISODate))
                                   : QVariant(QDate::fromString(text, Qt::ISODate));
    case Kind::Font:
        return font.fromString(text) ? QVariant(font) : QVariant();
    case Kind::RichText:
        return json.isString() ? QVariant::fromValue(ZelAttributedString(text)) : QVariant();
    case Kind::Size:
        return numbers.size() == 2 ? QVariant(QSizeF(numbers[0], numbers[1])) : QVariant();
    case Kind::Frame:
        return numbers.size() == 4 ? QVariant(QRectF(numbers[0], numbers[1], numbers[2], numbers[3])) : QVariant();
    default:
        return json.isNull() ? QVariant() : json.toVariant();
    }
}
