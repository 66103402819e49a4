// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QLocale>
#include <QString>
#include <memory>

/// A calculation that a person types in place of a number: `1in + 2 mm`, `sqrt(2)*10`, or one that depends on the value
/// that it replaces, `+=10%` or `100 + i*(x-100)`.
///
/// It consists of numbers in the way of the locale, `+ - * / ^ ( )`, the functions `sqrt abs min max round floor ceil
/// sin cos tan`, `pi`, and the names `x` (the object's own value), `i` (its place among the selected objects, from 0)
/// and `n` (how many they are). `+=`, `-=`, `*=` and `/=` at the beginning change the own value by what follows; after
/// `+=` and `-=`, a result followed by `%` is a part of the own value. The arguments of a function are separated by
/// semicolons, and by commas where the decimal sign is none.
///
/// A number, a closing parenthesis or a name may be followed by a unit of the kind of the field's own unit, and is
/// converted; a unit of another kind is refused, and so is a product of values with units. The functions of angles take
/// what the field's numbers are: its angles, otherwise radians, or angles with a unit. In a field whose unit is another
/// one than `%`, a value followed by `%` is that part of the own value, as in `50%`. Where it is a factor, as in
/// `200*50%`, and where the field has no unit, it is a number of hundredths. Only between a number and a name may the
/// sign of multiplication be left out, as in `2x`.
class ZEL_EXPORT ZelNumberExpression
{
public:
    /// Reads a text for a field with a unit, which may be null. If it cannot be read, the expression is null, and the
    /// error says why, and at which character, for people to read.
    static ZelNumberExpression fromText(const QString &text, const QString &unit, const QLocale &locale,
                                        QString *error = nullptr);

    ZelNumberExpression() = default; ///< null: it has no values
    bool isNull() const { return !m_calculation; }
    /// Whether the result depends on what it replaces: whether `x`, `i` or `n` or a relative operator is used.
    bool isRelative() const;
    /// Whether `i` or `n` is used.
    bool usesPlace() const;
    /// The result for one object, which may be infinite or no number, as for a division by 0.
    double value(double x = 0, qsizetype i = 0, qsizetype n = 1) const;

private:
    class Calculation;
    std::shared_ptr<Calculation> m_calculation; // shared by copies, which all only read
};
