// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelFormatter.h"

#include <QLocale>
#include <optional>

/// Numbers in decimal style, without exponent, with the decimal point of the locale and, if wanted, its group
/// separators.
///
/// Rounding is of the shortest decimal that means the number, half to even. What is shown for a finite number is
/// parsed; blanks around it are trimmed; an empty text is an absent value. Texts that are no finite number are refused,
/// as are separators in places where the locale has none.
class ZelNumberFormatter : public ZelFormatter
{
public:
    /// 0, up to 308; the maximum follows where it would be smaller.
    int minimumFractionDigits() const { return m_minimumFractionDigits; }
    void setMinimumFractionDigits(int digits);
    /// 3, up to 308; the minimum follows where it would be larger.
    int maximumFractionDigits() const { return m_maximumFractionDigits; }
    void setMaximumFractionDigits(int digits);
    /// Whether the locale's group separators are shown and understood, where its number options have any; false.
    bool usesGroupSeparator() const { return m_usesGroupSeparator; }
    void setUsesGroupSeparator(bool uses) { m_usesGroupSeparator = uses; }
    /// The application's default locale unless set.
    QLocale locale() const { return m_locale.value_or(QLocale()); }
    void setLocale(const QLocale &locale) { m_locale = locale; }

    /// A value that is not a number is shown as its text.
    QString stringForObjectValue(const QVariant &value) const override;
    /// Answers a double; an integer too large to be held exactly by one, a qlonglong.
    bool objectValueForString(const QString &text, QVariant *value, QString *error) const override;

private:
    QLocale parsingLocale() const;

    int m_minimumFractionDigits = 0;
    int m_maximumFractionDigits = 3;
    std::optional<QLocale> m_locale;
    bool m_usesGroupSeparator = false;
};
