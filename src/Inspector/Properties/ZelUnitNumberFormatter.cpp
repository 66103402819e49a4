// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelUnitNumberFormatter.h"

#include "Core/Values/ZelNumberChange.h"
#include "Core/Values/ZelValues.h"

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
    if (!readText(text, value, error))
        return false;
    if (const ZelNumberChange *change = m_adjustment ? ZelNumberChange::of(*value) : nullptr) {
        const auto adjusted = [change = *change, adjustment = m_adjustment](double own, qsizetype i, qsizetype n) {
            return adjustment(change.number(own, i, n));
        };
        *value = QVariant::fromValue(ZelNumberChange(adjusted, change->usesPlace()));
    } else if (m_adjustment && ZelIsNumber(*value)) {
        *value = m_adjustment(value->toDouble());
    }
    return true;
}

bool ZelUnitNumberFormatter::readText(const QString &text, QVariant *value, QString *error) const
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
