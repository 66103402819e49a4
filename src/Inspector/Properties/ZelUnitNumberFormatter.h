// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelNumberFormatter.h"
#include "Core/ZelExport.h"

#include <functional>

/// Formats numbers with a unit, which is shown behind the number, is no part of the text that is edited, and is
/// understood where it is typed.
class ZEL_EXPORT ZelUnitNumberFormatter : public ZelNumberFormatter
{
public:
    /// Appended as it stands, with any leading space; null for none.
    const QString &unit() const { return m_unit; }
    void setUnit(const QString &unit) { m_unit = unit; }

    /// What is made of every number that is read, and of every result; null for nothing, which is the default.
    void setAdjustment(const std::function<double(double)> &adjustment) { m_adjustment = adjustment; }

    QString stringForObjectValue(const QVariant &value) const override;
    QString editingStringForObjectValue(const QVariant &value) const override;
    bool objectValueForString(const QString &text, QVariant *value, QString *error) const override;
    Range unitRange(const QString &text) const override;

private:
    bool readText(const QString &text, QVariant *value, QString *error) const;

    QString m_unit;
    std::function<double(double)> m_adjustment;
};
