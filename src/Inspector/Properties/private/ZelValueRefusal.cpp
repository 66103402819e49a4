// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelValueRefusal.h"

#include "Controls/Fields/ZelNumberFormatter.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Values/ZelGeometryType.h"
#include "Core/Values/private/ZelEnumerationKeys.h"
#include "Core/Values/private/ZelTextForm.h"
#include "Resources/ZelLocalizedString.h"

#include <QTimeZone>
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

QString kindText(QMetaType type, const QString &text)
{
    const QStringList keys = ZelEnumerationKeys::names(type);
    if (!keys.isEmpty())
        return ZelLocalizedString("This must be one of %1.").arg(keys.join(QStringLiteral(", ")));
    QString detail;
    switch (type.id()) {
    case QMetaType::QRegularExpression:
        (void)ZelTextForm::read(text, type, &detail);
        return ZelLocalizedString("This is not a regular expression: %1").arg(detail);
    case QMetaType::QKeySequence:
        return ZelLocalizedString("These are not keys.");
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
        if (type == QMetaType::fromType<QTimeZone>())
            return ZelLocalizedString("This is not a time zone.");
        if (const ZelGeometryType *numbers = ZelGeometryType::find(type))
            return ZelLocalizedString("These are not %1 numbers.").arg(numbers->count);
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
    return kindText(refusing == types.end() ? QMetaType() : *refusing, value.toString());
}
