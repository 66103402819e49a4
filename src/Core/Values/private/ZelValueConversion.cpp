// SPDX-License-Identifier: MIT
#include "Core/Values/private/ZelValueConversion.h"

#include "Core/Values/ZelGeometryType.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelEnumerationKeys.h"
#include "Core/Values/private/ZelNumberTypes.h"
#include "Core/Values/private/ZelTextForm.h"

#include <QUrl>
#include <QUuid>
#include <cmath>
#include <limits>
#include <utility>

namespace {

using Result = ZelValueConversion::Result;
using Limits = ZelValueConversion::Limits;

/// A type of integers, or of floating-point numbers that are not doubles: what it holds, and how a number becomes one.
struct NumberType
{
    Limits limits;
    bool (*store)(const QVariant &number, QVariant &stored);
    QVariant (*ofBits)(quint64 bits);
};

template<typename Type> bool storeInteger(const QVariant &number, QVariant &stored)
{
    using Numbers = std::numeric_limits<Type>;
    if (ZelNumberTypes::isFloating(number.typeId())) {
        const double rounded = std::round(number.toDouble());
        // The greatest number may not be a double, but the next one, a power of two, is.
        if (!(rounded >= double(Numbers::min()) && rounded < std::ldexp(1.0, Numbers::digits)))
            return false;
        stored = QVariant::fromValue(Type(rounded));
        return true;
    }
    if (ZelNumberTypes::isUnsigned(number.typeId())) {
        const qulonglong integer = number.toULongLong();
        if (integer > qulonglong(Numbers::max()))
            return false;
        stored = QVariant::fromValue(Type(integer));
        return true;
    }
    const qlonglong integer = number.toLongLong();
    const bool fits = integer < 0 ? Numbers::is_signed && integer >= qlonglong(Numbers::min())
                                  : qulonglong(integer) <= qulonglong(Numbers::max());
    if (fits)
        stored = QVariant::fromValue(Type(integer));
    return fits;
}

bool storeFloat(const QVariant &number, QVariant &stored)
{
    const double real = number.toDouble();
    if (std::isfinite(real) && std::abs(real) > double(std::numeric_limits<float>::max()))
        return false;
    stored = QVariant::fromValue(float(real));
    return true;
}

template<typename Type> QVariant integerOfBits(quint64 bits)
{
    const Type number = Type(bits);
    const bool isWhole = quint64(number) == bits || quint64(std::make_unsigned_t<Type>(number)) == bits;
    return isWhole ? QVariant::fromValue(number) : QVariant(bits);
}

template<typename Type> NumberType integerType()
{
    using Numbers = std::numeric_limits<Type>;
    using Widest = std::conditional_t<Numbers::is_signed, qlonglong, qulonglong>;
    return {{QVariant(Widest(Numbers::min())), QVariant(Widest(Numbers::max()))},
            &storeInteger<Type>,
            &integerOfBits<Type>};
}

/// Answers null for any other type, and for double, which holds every number.
const NumberType *numberType(int type)
{
    static const QHash<int, NumberType> types{
        {QMetaType::Char, integerType<char>()},
        {QMetaType::SChar, integerType<signed char>()},
        {QMetaType::UChar, integerType<uchar>()},
        {QMetaType::Short, integerType<short>()},
        {QMetaType::UShort, integerType<ushort>()},
        {QMetaType::Int, integerType<int>()},
        {QMetaType::UInt, integerType<uint>()},
        {QMetaType::Long, integerType<long>()},
        {QMetaType::ULong, integerType<ulong>()},
        {QMetaType::LongLong, integerType<qlonglong>()},
        {QMetaType::ULongLong, integerType<qulonglong>()},
        {QMetaType::Float,
         {{QVariant(-double(std::numeric_limits<float>::max())), QVariant(double(std::numeric_limits<float>::max()))},
          &storeFloat,
          [](quint64 bits) { return QVariant(bits); }}},
    };
    const auto found = types.constFind(type);
    return found == types.constEnd() ? nullptr : &*found;
}

bool isEnumeration(QMetaType type)
{
    return ZelEnumerationKeys::isEnumeration(type);
}

/// The limits of the integer in which the enumeration is stored. Flags may be given signed or unsigned, because their
/// type does not say whether the sign bit is one of them.
Limits limitsOfEnumeration(QMetaType type)
{
    const int bits = int(type.sizeOf()) * 8;
    if (bits < 8 || bits > 32)
        return {};
    const bool isUnsigned = type.flags().testFlag(QMetaType::IsUnsignedEnumeration);
    const bool isFlags = ZelEnumerationKeys::isFlags(type);
    const qlonglong all = (qlonglong(1) << bits) - 1;
    return {QVariant(isUnsigned ? qlonglong(0) : -(all / 2) - 1), QVariant(isUnsigned || isFlags ? all : all / 2)};
}

bool isWithin(const QVariant &number, const Limits &limits)
{
    const double value = number.toDouble();
    return !limits.isValid() || (value >= limits.minimum.toDouble() && value <= limits.maximum.toDouble());
}

bool isText(QMetaType type)
{
    return type.id() == QMetaType::QString || type.id() == QMetaType::QByteArray;
}

/// Whether Qt would turn values of the type into texts that mean nothing to people, or lose a part of the value.
bool hasNoText(QMetaType type)
{
    return type.id() == QMetaType::QFont || type.id() == QMetaType::QColor || type.id() == QMetaType::QStringList;
}

/// Whether the conversion has read a text that is not empty as "none".
bool isEmptied(const QVariant &value, const QString &text)
{
    switch (value.typeId()) {
    case QMetaType::QUrl:
        return !value.toUrl().isValid();
    case QMetaType::QUuid:
        return value.toUuid().isNull() && !text.contains(u'0');
    default:
        return ZelIsAbsent(value);
    }
}

/// Reads a number: as an integer if it is one, since a double does not hold all integers of 64 bits. Invalid for a text
/// that is no number.
QVariant numberOf(const QString &text)
{
    bool isNumber = false;
    if (const qlonglong number = text.toLongLong(&isNumber); isNumber)
        return number;
    if (const qulonglong number = text.toULongLong(&isNumber); isNumber)
        return number;
    const double number = text.toDouble(&isNumber);
    return isNumber ? QVariant(number) : QVariant();
}

Result convertText(QVariant &value, QMetaType type)
{
    const QString text = value.toString();
    if (const NumberType *target = numberType(type.id())) { // Qt's conversion wraps for the small types
        const QVariant number = numberOf(text);
        if (!number.isValid())
            return ZelValueConversion::Unconvertible;
        return target->store(number, value) ? ZelValueConversion::Fits : ZelValueConversion::OutOfRange;
    }
    const bool canBeEmpty = type.id() != QMetaType::QLocale; // what Qt has for none is the system's
    if (ZelTextForm::has(type) && !isText(type) && (!text.isEmpty() || !canBeEmpty)) {
        const std::optional<QVariant> read = ZelTextForm::read(text, type);
        value = read.value_or(value);
        return read ? ZelValueConversion::Fits : ZelValueConversion::Unconvertible;
    }
    if (const auto keys = isEnumeration(type) ? ZelEnumerationKeys::valueOf(text, type) : std::nullopt) {
        value = *keys;
        return ZelValueConversion::Fits;
    }
    QVariant converted = value;
    const bool isConverted = converted.convert(type);
    const bool hasNone = type.id() != QMetaType::Double && type.id() != QMetaType::Bool && !isEnumeration(type);
    if (!isConverted && text.isEmpty() && hasNone)
        converted = QVariant(type);
    else if (!isConverted || (!text.isEmpty() && !isText(converted.metaType()) && isEmptied(converted, text)))
        return ZelValueConversion::Unconvertible;
    value = converted;
    return ZelValueConversion::Fits;
}

/// A point, size or rectangle of integers has room for numbers up to 2^30, so that its far corner does not wrap either.
bool fitsGeometry(const QVariant &value, QMetaType type)
{
    const ZelGeometryType *source = ZelGeometryType::find(value.metaType());
    const ZelGeometryType *target = source ? ZelGeometryType::find(type) : nullptr;
    if (!target || target->type == target->ofDoubles || source->type != source->ofDoubles)
        return true;
    ZelGeometryType::Numbers numbers{};
    source->load(value.constData(), numbers);
    return std::all_of(numbers.begin(), numbers.end(),
                       [](double number) { return std::abs(number) <= double(1 << 30); });
}

/// Between margins or lines of doubles and of integers, which Qt does not convert.
bool convertGeometry(const QVariant &value, QMetaType type, QVariant &converted)
{
    const ZelGeometryType *source = ZelGeometryType::find(value.metaType());
    const ZelGeometryType *target = source ? ZelGeometryType::find(type) : nullptr;
    if (!target || target->ofDoubles != source->ofDoubles)
        return false;
    ZelGeometryType::Numbers numbers{};
    source->load(value.constData(), numbers);
    converted = QVariant(type);
    target->store(numbers, converted.data());
    return true;
}

/// The bits as a value of the enumeration; as a number if it has no room for them.
QVariant enumerationOfBits(quint64 bits, QMetaType type)
{
    const bool isUnsigned = type.flags().testFlag(QMetaType::IsUnsignedEnumeration);
    QVariant number = qlonglong(bits);
    switch (type.sizeOf()) {
    case sizeof(qint8):
        number = isUnsigned ? integerOfBits<uchar>(bits) : integerOfBits<signed char>(bits);
        break;
    case sizeof(qint16):
        number = isUnsigned ? integerOfBits<ushort>(bits) : integerOfBits<short>(bits);
        break;
    case sizeof(qint32):
        number = isUnsigned ? integerOfBits<uint>(bits) : integerOfBits<int>(bits);
        break;
    default:
        break;
    }
    QVariant value = number;
    return number.typeId() != QMetaType::ULongLong && value.convert(type) ? value : number;
}

} // namespace

Result ZelValueConversion::convert(QVariant &value, QMetaType type)
{
    if (!type.isValid() || type.id() == QMetaType::QVariant || value.metaType() == type)
        return Fits;
    if (ZelIsNull(value)) {
        value = QVariant(type);
        return Fits;
    }
    if (ZelIsControllerMarker(value) || (isText(type) && hasNoText(value.metaType())))
        return Unconvertible;
    if (isText(value.metaType()))
        return convertText(value, type);
    const bool isNumber = ZelIsNumber(value);
    if (const NumberType *target = isNumber ? numberType(type.id()) : nullptr) {
        QVariant number = value;
        if (isEnumeration(value.metaType()) && !number.convert(QMetaType::fromType<qlonglong>()))
            return Unconvertible;
        return target->store(number, value) ? Fits : OutOfRange;
    }
    if ((isNumber && isEnumeration(type) && !isWithin(value, limits(type))) || !fitsGeometry(value, type))
        return OutOfRange;
    QVariant converted = value;
    if (!converted.convert(type) && !convertGeometry(value, type, converted))
        return Unconvertible;
    value = converted;
    return Fits;
}

bool ZelValueConversion::losesFraction(const QVariant &value, QMetaType type)
{
    if (ZelNumberTypes::isFloating(type.id()) || (!numberType(type.id()) && !isEnumeration(type)))
        return false;
    const QVariant number = isText(value.metaType()) ? numberOf(value.toString()) : value;
    if (!ZelNumberTypes::isFloating(number.typeId()))
        return false;
    const double real = number.toDouble();
    return std::isfinite(real) && real != std::round(real);
}

Limits ZelValueConversion::limits(QMetaType type)
{
    if (isEnumeration(type))
        return limitsOfEnumeration(type);
    const NumberType *known = numberType(type.id());
    return known ? known->limits : Limits();
}

QVariant ZelValueConversion::ofBits(quint64 bits, QMetaType type)
{
    if (isEnumeration(type))
        return enumerationOfBits(bits, type);
    const NumberType *known = numberType(type.id());
    return known ? known->ofBits(bits) : QVariant(bits);
}
