// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelFormatter.h"
#include "Core/ZelExport.h"

#include <QLocale>
#include <optional>

/// Numbers in decimal style, without exponent, with the decimal point of the locale and, if wanted, its group
/// separators.
///
/// A number is first converted to the shortest decimal that means it, and that decimal is rounded half to even. Every
/// text that is shown for a finite number can also be parsed. Blanks around a text are ignored; an empty text is an
/// absent value. A text that is no finite number is refused, and so is one with a separator in a place where the locale
/// has none.
class ZEL_EXPORT ZelNumberFormatter : public ZelFormatter
{
public:
    /// 0 by default, at most 308. A minimum above the maximum raises the maximum.
    int minimumFractionDigits() const { return m_minimumFractionDigits; }
    void setMinimumFractionDigits(int digits);
    /// 3 by default, at most 308. A maximum below the minimum lowers the minimum.
    int maximumFractionDigits() const { return m_maximumFractionDigits; }
    void setMaximumFractionDigits(int digits);
    /// Whether the locale's group separators are shown and understood, unless its number options omit them; false by
    /// default.
    bool usesGroupSeparator() const { return m_usesGroupSeparator; }
    void setUsesGroupSeparator(bool uses) { m_usesGroupSeparator = uses; }
    /// The locale; the application's default locale unless another one is set.
    QLocale locale() const { return m_locale.value_or(QLocale()); }
    void setLocale(const QLocale &locale) { m_locale = locale; }

    /// Whether a text that is no number is tried as a calculation, ZelNumberExpression; false by default. One that
    /// depends on the number which it replaces is answered as a ZelNumberChange.
    bool readsExpressions() const { return m_readsExpressions; }
    void setReadsExpressions(bool reads) { m_readsExpressions = reads; }

    /// A value that is not a number is shown as its text.
    QString stringForObjectValue(const QVariant &value) const override;
    /// Answers a double, but a qlonglong or qulonglong for an integer that a double cannot hold exactly.
    bool objectValueForString(const QString &text, QVariant *value, QString *error) const override;

protected:
    /// Reads a plain number, or nothing.
    std::optional<QVariant> readNumber(const QString &text) const;
    /// Reads a calculation for a field with that unit, which may be null. If there are to be none, the text is no
    /// number.
    bool readExpression(const QString &text, const QString &unit, QVariant *value, QString *error) const;

private:
    QLocale parsingLocale() const;
    std::optional<qlonglong> readAddend(const QString &text) const;

    int m_minimumFractionDigits = 0;
    int m_maximumFractionDigits = 3;
    std::optional<QLocale> m_locale;
    bool m_usesGroupSeparator = false;
    bool m_readsExpressions = false;
};
