// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelUnitNumberFormatter.h"

QString ZelUnitNumberFormatter::stringForObjectValue(const QVariant &value) const
{
    const QString number = ZelNumberFormatter::stringForObjectValue(value);
    return number.isEmpty() ? number : number + m_unit;
}

QString ZelUnitNumberFormatter::editingStringForObjectValue(const QVariant &value) const
{
    return ZelNumberFormatter::stringForObjectValue(value);
}

bool ZelUnitNumberFormatter::objectValueForString(const QString &text, QVariant *value, QString *error) const
{
    const QString unit = m_unit.trimmed();
    const QString trimmed = text.trimmed();
    const bool hasUnit = !unit.isEmpty() && trimmed.endsWith(unit);
    const std::optional<QVariant> number = readNumber(hasUnit ? trimmed.chopped(unit.size()) : text);
    if (!number)
        return readExpression(text, unit, value, error);
    *value = *number;
    return true;
}

ZelFormatter::Range ZelUnitNumberFormatter::unitRange(const QString &text) const
{
    if (m_unit.isEmpty() || !text.endsWith(m_unit))
        return {};
    return {text.size() - m_unit.size(), m_unit.size()};
}
