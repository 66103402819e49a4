// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelValueRefusal.h"

#include "Controls/Fields/ZelNumberFormatter.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Resources/ZelLocalizedString.h"

#include <QMetaEnum>
#include <algorithm>

namespace {

QString limitsText(const ZelValueConversion::Limits &limits, const ZelValueTransformerPtr &transformer)
{
    QVariant least = limits.minimum;
    QVariant greatest = limits.maximum;
    if (transformer) {
        least = transformer->transformedValue(least);
        greatest = transformer->transformedValue(greatest);
        if (least.toDouble() > greatest.toDouble())
            std::swap(least, greatest);
    }
    ZelNumberFormatter formatter;
    formatter.setUsesGroupSeparator(true);
    return ZelLocalizedString("The number must be between %1 and %2.")
        .arg(formatter.stringForObjectValue(least), formatter.stringForObjectValue(greatest));
}

/// The keys of an enumeration; none for any other type.
QStringList keysOf(QMetaType type)
{
    if (!type.flags().testFlag(QMetaType::IsEnumeration) || !type.metaObject())
        return {};
    const QByteArray name = QByteArray(type.name()).split(':').last();
    const QMetaEnum enumeration = type.metaObject()->enumerator(type.metaObject()->indexOfEnumerator(name));
    QStringList keys;
    for (int i = 0; i < enumeration.keyCount(); ++i)
        keys.append(QString::fromLatin1(enumeration.key(i)));
    return keys;
}

QString kindText(QMetaType type)
{
    const QStringList keys = keysOf(type);
    if (!keys.isEmpty())
        return ZelLocalizedString("This must be one of %1.").arg(keys.join(QStringLiteral(", ")));
    switch (type.id()) {
    case QMetaType::QUrl:
        return ZelLocalizedString("This is not an address.");
    case QMetaType::QTime:
        return ZelLocalizedString("This is not a time.");
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return ZelLocalizedString("This is not a date.");
    case QMetaType::QLocale:
        return ZelLocalizedString("This is not a language.");
    case QMetaType::QColor:
        return ZelLocalizedString("This is not a color.");
    default:
        return ZelLocalizedString(ZelValueConversion::limits(type).isValid() || type.id() == QMetaType::Double
                                      ? "This is not a number."
                                      : "This is not a value.");
    }
}

} // namespace

QString ZelValueRefusal::reason(const ZelPropertyDomain &domain, const QVariant &value,
                                const ZelValueTransformerPtr &transformer)
{
    switch (domain.check(value)) {
    case ZelValueConversion::Fits:
        // Behind a transformer, a whole number in the model need not look like one.
        return !transformer && domain.losesFraction(value) ? ZelLocalizedString("The number must be a whole number.")
                                                           : QString();
    case ZelValueConversion::OutOfRange:
        return limitsText(domain.limits(), transformer);
    case ZelValueConversion::Unconvertible:
        break;
    }
    const auto &types = domain.types();
    const auto refuses = [&](QMetaType type) { return !ZelPropertyDomain::ofType(type).takes(value); };
    const auto refusing = std::find_if(types.begin(), types.end(), refuses);
    return kindText(refusing == types.end() ? QMetaType() : *refusing);
}
