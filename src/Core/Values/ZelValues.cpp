// SPDX-License-Identifier: MIT
#include "Core/Values/ZelValues.h"

#include "Core/Values/private/ZelNumberTypes.h"

#include <QColor>
#include <QDateTime>
#include <QMetaObject>
#include <QSequentialIterable>

namespace {

struct NullValue
{
    friend bool operator==(NullValue, NullValue) { return true; }
};

template<typename Type> const Type &as(const QVariant &value)
{
    return *static_cast<const Type *>(value.constData());
}

bool isNumberType(int type)
{
    switch (type) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Long:
    case QMetaType::Short:
    case QMetaType::Char:
    case QMetaType::ULong:
    case QMetaType::UShort:
    case QMetaType::UChar:
    case QMetaType::Float:
    case QMetaType::SChar:
        return true;
    default:
        return false;
    }
}

/// A built-in number, or an enumeration other than the selection markers.
bool isNumberType(QMetaType type)
{
    return isNumberType(type.id()) ||
           (type.flags().testFlag(QMetaType::IsEnumeration) && type != QMetaType::fromType<ZelControllerMarker>());
}

bool equalNumbers(const QVariant &a, int typeA, const QVariant &b, int typeB)
{
    if (ZelNumberTypes::isFloating(typeA) || ZelNumberTypes::isFloating(typeB))
        return a.toDouble() == b.toDouble();
    if (ZelNumberTypes::isUnsigned(typeA) != ZelNumberTypes::isUnsigned(typeB)) {
        const QVariant &other = ZelNumberTypes::isUnsigned(typeA) ? b : a;
        if (other.toLongLong() < 0)
            return false;
    }
    return a.toULongLong() == b.toULongLong();
}

bool isObjectType(QMetaType type)
{
    return type.flags().testFlag(QMetaType::PointerToQObject);
}

} // namespace

Q_DECLARE_METATYPE(NullValue)

QVariant ZelNull()
{
    static const QVariant null = QVariant::fromValue(NullValue());
    return null;
}

bool ZelIsAbsent(const QVariant &value)
{
    const QMetaType type = value.metaType();
    switch (type.id()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return true;
    case QMetaType::QString:
        return as<QString>(value).isNull();
    case QMetaType::Double:
    case QMetaType::Int:
    case QMetaType::Bool:
        return false;
    case QMetaType::QDate:
        return !as<QDate>(value).isValid();
    case QMetaType::QTime:
        return !as<QTime>(value).isValid();
    case QMetaType::QDateTime:
        return !as<QDateTime>(value).isValid();
    case QMetaType::QColor:
        return !as<QColor>(value).isValid();
    default:
        return isObjectType(type) && !as<QObject *>(value);
    }
}

QVariant ZelPresent(QVariant value)
{
    if (ZelIsAbsent(value))
        value.clear();
    return value;
}

bool ZelIsNull(const QVariant &value)
{
    return ZelIsAbsent(value) || value.metaType() == QMetaType::fromType<NullValue>();
}

bool ZelIsControllerMarker(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<ZelControllerMarker>();
}

bool ZelIsMarker(const QVariant &value, ZelControllerMarker marker)
{
    return ZelIsControllerMarker(value) && as<ZelControllerMarker>(value) == marker;
}

bool ZelEqual(const QVariant &a, const QVariant &b)
{
    const QMetaType typeA = a.metaType();
    const QMetaType typeB = b.metaType();
    if (typeA.id() == QMetaType::QString && typeB.id() == QMetaType::QString) {
        const QString &textA = as<QString>(a);
        const QString &textB = as<QString>(b);
        return textA == textB && textA.isNull() == textB.isNull();
    }
    const bool absentA = ZelIsAbsent(a);
    if (absentA || ZelIsAbsent(b))
        return absentA == ZelIsAbsent(b);
    if (isNumberType(typeA) && isNumberType(typeB))
        return equalNumbers(a, typeA.id(), b, typeB.id());
    if (isObjectType(typeA) || isObjectType(typeB))
        return isObjectType(typeA) && isObjectType(typeB) && as<QObject *>(a) == as<QObject *>(b);
    // Qt's comparison converts between types; here only numbers of different types may be equal.
    return typeA == typeB && a == b;
}

QObject *ZelObject(const QVariant &value)
{
    return isObjectType(value.metaType()) ? as<QObject *>(value) : nullptr;
}

bool ZelIsNumber(const QVariant &value)
{
    return isNumberType(value.metaType());
}

bool ZelIsList(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return false;
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return true;
    default:
        return value.canConvert<QSequentialIterable>();
    }
}

QVariantList ZelList(const QVariant &value)
{
    if (value.typeId() == QMetaType::QVariantList)
        return as<QVariantList>(value);
    QVariantList list;
    if (!ZelIsList(value))
        return list;
    const QSequentialIterable elements = value.value<QSequentialIterable>();
    list.reserve(std::max<qsizetype>(elements.size(), 0));
    for (const QVariant &element : elements)
        list.append(element);
    return list;
}

QString ZelClassName(const QVariant &value)
{
    if (!value.isValid())
        return QStringLiteral("nil");
    if (const QObject *object = ZelObject(value))
        return QString::fromUtf8(object->metaObject()->className());
    if (value.metaType() == QMetaType::fromType<NullValue>())
        return QStringLiteral("ZelNull");
    return QString::fromUtf8(value.typeName());
}

QString ZelDescription(const QVariant &value)
{
    if (!value.isValid())
        return QStringLiteral("(null)");
    if (const QObject *object = ZelObject(value))
        return ZelObjectDescription(object);
    if (value.canConvert<QString>())
        return value.toString();
    return QStringLiteral("<%1>").arg(ZelClassName(value));
}

QString ZelObjectDescription(const QObject *object)
{
    if (!object)
        return QStringLiteral("(null)");
    return QStringLiteral("<%1: 0x%2>")
        .arg(QString::fromUtf8(object->metaObject()->className()))
        .arg(reinterpret_cast<quintptr>(object), 0, 16);
}
