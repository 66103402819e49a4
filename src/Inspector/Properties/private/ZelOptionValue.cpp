// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelOptionValue.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelEnumerationKeys.h"
#include "Core/Values/private/ZelNumberScanner.h"
#include "Core/Values/private/ZelNumberTypes.h"
#include "Inspector/Properties/ZelOptionGroup.h"

namespace {

bool isEnumeration(QMetaType type)
{
    return ZelEnumerationKeys::isEnumeration(type);
}

} // namespace

void ZelOptionValue::setText(ZelOption *option, const QString &text, const ZelSourcePlace &place)
{
    option->text = text;
    if (!place.isEmpty() && !text.isNull() && !ZelNumberScanner::isInteger(text))
        ZelSourcePlace::setForObject(option, place); // only texts may be warned of later
}

QMetaType ZelOptionValue::typeOf(const QVariant &modelValue)
{
    if (ZelIsControllerMarker(modelValue))
        return {};
    const QMetaType type = modelValue.metaType();
    if (type == QMetaType::fromType<QString>() || isEnumeration(type))
        return type;
    if (!ZelIsNumber(modelValue))
        return {};
    return ZelNumberTypes::isUnsigned(type.id()) ? QMetaType::fromType<quint64>() : QMetaType::fromType<qint64>();
}

QVariant ZelOptionValue::forType(QMetaType type, const QVariant &number, const QString &text)
{
    if (text.isNull())
        return number;
    if (type == QMetaType::fromType<QString>())
        return text;
    if (ZelNumberScanner::isInteger(text) && type == QMetaType::fromType<quint64>()) {
        bool isUnsigned = false;
        const quint64 bits = text.trimmed().toULongLong(&isUnsigned, ZelNumberScanner::isHexadecimal(text) ? 16 : 10);
        return isUnsigned ? QVariant(bits) : number;
    }
    if (ZelNumberScanner::isInteger(text))
        return number;
    if (!type.isValid())
        return text;
    return (isEnumeration(type) ? ZelEnumerationKeys::valueOf(text, type) : std::nullopt).value_or(number);
}

void ZelOptionValue::warnOfTexts(const ZelOptionGroup *group, QMetaType type)
{
    if (!type.isValid() || type == QMetaType::fromType<QString>())
        return;
    for (const ZelOption *option : group->options()) {
        if (option->text.isNull() || ZelNumberScanner::isInteger(option->text))
            continue;
        const QString message = QStringLiteral("The value \"%1\" of an option is no integer").arg(option->text);
        if (!isEnumeration(type))
            ZelLogWarning(message, ZelSourcePlace::ofObject(option));
        else if (!ZelEnumerationKeys::valueOf(option->text, type))
            ZelLogWarning(message + u" and no key of " + QString::fromUtf8(type.name()),
                          ZelSourcePlace::ofObject(option));
    }
}
