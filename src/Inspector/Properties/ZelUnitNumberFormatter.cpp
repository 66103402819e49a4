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
    if (unit.isEmpty())
        return ZelNumberFormatter::objectValueForString(text, value, error);
    QString number = text.trimmed();
    if (number.endsWith(unit))
        number = number.chopped(unit.size()).trimmed();
    return ZelNumberFormatter::objectValueForString(number, value, error);
}

ZelFormatter::Range ZelUnitNumberFormatter::unitRange(const QString &text) const
{
    if (m_unit.isEmpty() || !text.endsWith(m_unit))
        return {};
    return {text.size() - m_unit.size(), m_unit.size()};
}
