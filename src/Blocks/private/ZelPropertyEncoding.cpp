// SPDX-License-Identifier: MIT
#include "Blocks/private/ZelPropertyEncoding.h"

#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <QRectF>
#include <limits>

namespace {

constexpr char g_anyText[] = "@";

QVariant anyValue(const QVariant &value)
{
    return ZelIsNull(value) ? QVariant() : value;
}

template<typename Type> QVariant geometry(const QVariant &value)
{
    return QVariant::fromValue(value.value<Type>());
}

template<typename Type> Type fromReal(double value)
{
    if (std::is_floating_point_v<Type>)
        return Type(value);
    using Limits = std::numeric_limits<Type>;
    if (value >= double(Limits::max()))
        return Limits::max();
    if (value <= double(Limits::min()))
        return Limits::min();
    return value == value ? Type(value) : Type(0); // NaN differs from itself
}

template<typename Type> QVariant number(const QVariant &value)
{
    Type result = 0;
    const int type = value.typeId();
    if (std::is_floating_point_v<Type> || type == QMetaType::Double || type == QMetaType::Float || !ZelIsNumber(value))
        result = fromReal<Type>(value.toDouble());
    else
        result = Type(type == QMetaType::ULongLong ? value.toULongLong() : quint64(value.toLongLong()));
    return QVariant::fromValue(result);
}

QVariant boolean(const QVariant &value)
{
    return value.toBool();
}

template<typename Type> constexpr auto typeOf = &QMetaType::fromType<Type>;

} // namespace

const QList<ZelPropertyEncoding> &ZelPropertyEncoding::all()
{
    static const QList<ZelPropertyEncoding> encodings{
        {g_anyText, QMetaType(), &anyValue},
        {"c", typeOf<bool>(), &boolean},
        {"s", typeOf<short>(), &number<short>},
        {"i", typeOf<int>(), &number<int>},
        {"I", typeOf<uint>(), &number<uint>},
        {"q", typeOf<qlonglong>(), &number<qlonglong>},
        {"f", typeOf<float>(), &number<float>},
        {"d", typeOf<double>(), &number<double>},
        {"{CGPoint=dd}", typeOf<QPointF>(), &geometry<QPointF>},
        {"{CGSize=dd}", typeOf<QSizeF>(), &geometry<QSizeF>},
        {"{CGRect={CGPoint=dd}{CGSize=dd}}", typeOf<QRectF>(), &geometry<QRectF>},
    };
    return encodings;
}

const ZelPropertyEncoding *ZelPropertyEncoding::find(const QString &text)
{
    const QLatin1String any(g_anyText);
    const bool isAny = text == any || text.startsWith(QLatin1String("@\""));
    for (const ZelPropertyEncoding &encoding : all()) {
        if (QLatin1String(encoding.m_text) == (isAny ? QString(any) : text))
            return &encoding;
    }
    return nullptr;
}

const ZelPropertyEncoding *ZelPropertyEncoding::find(QMetaType type)
{
    for (const ZelPropertyEncoding &encoding : all()) {
        if (encoding.m_type.isValid() && encoding.m_type == type)
            return &encoding;
    }
    return nullptr;
}

bool ZelPropertyEncoding::canConvert(const QVariant &value) const
{
    QVariant converted = value;
    return ZelValueConversion::convert(converted, m_type) == ZelValueConversion::Fits;
}
