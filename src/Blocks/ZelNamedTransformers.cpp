// SPDX-License-Identifier: MIT
#include "Blocks/ZelNamedTransformers.h"

#include "Blocks/ZelColorNameTransformer.h"
#include "Blocks/private/ZelConditionTransformer.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelIndexSet.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelNumberScanner.h"

#include <QAssociativeIterable>
#include <QPointF>
#include <QSequentialIterable>
#include <algorithm>
#include <atomic>

const QString ZelPointerToStringTransformerName = QStringLiteral("ZelPointerToStringTransformerName");
const QString ZelFirstInArrayTransformerName = QStringLiteral("ZelFirstInArrayTransformerName");
const QString ZelIsNotEmptyTransformerName = QStringLiteral("ZelIsNotEmptyTransformerName");
const QString ZelNilOrNoTransformerName = QStringLiteral("ZelNilOrNoTransformerName");
const QString ZelPercentValueTransformerName = QStringLiteral("ZelPercentValueTransformerName");
const QString ZelColorNameTransformerName = QStringLiteral("ZelColorNameTransformerName");
const QString ZelZeroPointTransformerName = QStringLiteral("ZelZeroPointTransformerName");
const QString ZelDebugTransformerName = QStringLiteral("ZelDebugTransformerName");

namespace {

QVariant falseResult()
{
    return false;
}

QVariant hexadecimalText(const QVariant &value)
{
    const bool isFloating = value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float;
    constexpr double limit = 18446744073709549568.0; // the largest double below 2^64
    const double real = isFloating ? value.toDouble() : 0.0;
    quint64 bits = 0;
    if (!isFloating)
        bits = value.toULongLong();
    else if (real >= 0) // false for NaN
        bits = quint64(std::min(real, limit));
    else
        bits = quint64(qint64(std::max(real, -9223372036854775808.0)));
    return QString(u"0x" + QString::number(bits, 16));
}

QVariant numberFromHexadecimalText(const QVariant &value)
{
    const std::optional<quint64> number = ZelNumberScanner::hexadecimal(value.toString());
    return number ? QVariant(*number) : QVariant();
}

QVariant firstElement(const QVariant &value)
{
    return ZelList(value).value(0);
}

/// Whether this is a list and not a set: elements of a list can be put in any place.
bool isArray(const QVariant &value)
{
    return ZelIsList(value) && value.value<QSequentialIterable>().metaContainer().canSetValueAtIndex();
}

bool isMap(const QVariant &value)
{
    return value.canConvert<QAssociativeIterable>();
}

bool isIndexSet(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<ZelIndexSet>();
}

bool hasCount(const QVariant &value)
{
    const QObject *object = ZelObject(value);
    return ZelIsList(value) || isMap(value) || isIndexSet(value) || (object && ZelHasKey(object, "count"));
}

QVariant isNotEmpty(const QVariant &value)
{
    if (isIndexSet(value))
        return !value.value<ZelIndexSet>().isEmpty();
    if (ZelIsList(value)) { // which may be long: its elements are not read
        const auto list = value.value<QSequentialIterable>();
        return list.begin() != list.end();
    }
    if (isMap(value))
        return value.value<QAssociativeIterable>().size() != 0;
    return ZelValueForKey(ZelObject(value), "count").toLongLong() != 0;
}

QVariant itself(const QVariant &value)
{
    return value;
}

QVariant percent(const QVariant &value)
{
    return value.toDouble() * 100.0;
}

QVariant fraction(const QVariant &value)
{
    return value.toDouble() / 100.0;
}

using Row = ZelNamedValueTransformer::Row;
constexpr Row g_pointerToString = {"QString",
                                   nullptr,
                                   {&ZelIsNumber, &hexadecimalText},
                                   {&ZelNamedValueTransformer::isString, &numberFromHexadecimalText}};
constexpr Row g_firstInArray = {"QVariant", nullptr, {&isArray, &firstElement}};
constexpr Row g_notEmpty = {"bool", &falseResult, {&hasCount, &isNotEmpty}};
constexpr Row g_nilOrNo = {"double", &falseResult, {&ZelIsNumber, &itself}};
constexpr Row g_percentValue = {"double", nullptr, {&ZelIsNumber, &percent}, {&ZelIsNumber, &fraction}};

template<typename Transformer> void registerTransformer()
{
    ZelAbstractValueTransformer::setValueTransformer(QSharedPointer<Transformer>::create(),
                                                     Transformer::transformerName());
}

/// Registers one instance of the class, once. Making it calls this function again, which must not wait for itself as it
/// would with an initialised static.
template<typename Transformer> void registerAtFirstUse(const QString &name)
{
    static std::atomic_flag begun;
    if (!begun.test_and_set())
        ZelAbstractValueTransformer::setValueTransformer(QSharedPointer<Transformer>::create(), name);
}

[[maybe_unused]] const bool registeredAtLoad = (ZelRegisterTransformers(), true);

} // namespace

void ZelRegisterTransformers()
{
    [[maybe_unused]] static const bool registered = [] {
        registerTransformer<ZelPointerToStringTransformer>();
        registerTransformer<ZelFirstInArrayTransformer>();
        registerTransformer<ZelIsNotEmptyTransformer>();
        registerTransformer<ZelNilOrNoTransformer>();
        registerTransformer<ZelPercentValueTransformer>();
        registerTransformer<ZelColorNameTransformer>();
        ZelConditionTransformer::registerAll();
        return true;
    }();
}

ZelPointerToStringTransformer::ZelPointerToStringTransformer()
    : ZelNamedValueTransformer(g_pointerToString)
{
}
ZelFirstInArrayTransformer::ZelFirstInArrayTransformer()
    : ZelNamedValueTransformer(g_firstInArray)
{
}
ZelIsNotEmptyTransformer::ZelIsNotEmptyTransformer()
    : ZelNamedValueTransformer(g_notEmpty)
{
}
ZelNilOrNoTransformer::ZelNilOrNoTransformer()
    : ZelNamedValueTransformer(g_nilOrNo)
{
}
ZelPercentValueTransformer::ZelPercentValueTransformer()
    : ZelNamedValueTransformer(g_percentValue)
{
}

ZelZeroPointTransformer::ZelZeroPointTransformer()
{
    registerAtFirstUse<ZelZeroPointTransformer>(ZelZeroPointTransformerName);
}

QString ZelZeroPointTransformer::transformerName()
{
    registerAtFirstUse<ZelZeroPointTransformer>(ZelZeroPointTransformerName);
    return ZelZeroPointTransformerName;
}

QVariant ZelZeroPointTransformer::transformedValue(const QVariant &value) const
{
    return ZelIsNull(value) || ZelIsControllerMarker(value) ? QVariant(QPointF()) : value;
}

ZelDebugTransformer::ZelDebugTransformer()
{
    registerAtFirstUse<ZelDebugTransformer>(ZelDebugTransformerName);
}

QString ZelDebugTransformer::transformerName()
{
    registerAtFirstUse<ZelDebugTransformer>(ZelDebugTransformerName);
    return ZelDebugTransformerName;
}
