// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelFieldContent.h"

#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Resources/ZelLocalizedString.h"
#include "Platform/Runtime/ZelValues.h"

QString ZelFieldContent::displayString() const
{
    if (ZelIsNull(value) || ZelIsControllerMarker(value))
        return {};
    return formatter ? formatter->stringForObjectValue(value) : value.toString();
}

QString ZelFieldContent::editingString() const
{
    if (!formatter || ZelIsNull(value) || ZelIsControllerMarker(value))
        return displayString();
    return formatter->editingStringForObjectValue(value);
}

QString ZelFieldContent::placeholder() const
{
    return ZelIsControllerMarker(value) ? ZelControlSupport::markerText(value) : nullPlaceholder;
}

bool ZelFieldContent::parse(const QString &text, QVariant *result, QString *error) const
{
    if (!formatter) {
        *result = text.isEmpty() ? QVariant() : QVariant(text);
    } else if (!formatter->objectValueForString(text, result, error)) {
        if (error->isEmpty())
            *error = ZelLocalizedString(QStringLiteral("This is not a value."));
        return false;
    }
    *error = check ? check(*result) : QString();
    return error->isEmpty();
}
