// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QMetaType>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

/// A number that depends on the one that it replaces, so that each of several objects gets its own: twice what it had,
/// or 10 more.
///
/// A control reports it as its value where it cannot report one number. What stores a control's value in the model, a
/// binding or ZelInspectorProperty::setReflectedValue, then makes each object's new number from its own one.
class ZEL_EXPORT ZelNumberChange
{
public:
    /// Answers the new number for an object's own one, which is NaN for an object without a number; `index` is the
    /// object's place among `count` selected objects, from 0. An object for which the answer is not finite keeps what
    /// it has.
    using Function = std::function<double(double own, qsizetype index, qsizetype count)>;

    ZelNumberChange() = default; ///< null: it has no numbers
    /// `usesPlace` tells whether the answers depend on the index or the count.
    explicit ZelNumberChange(Function function, bool usesPlace = false)
        : m_calculation(std::make_shared<Calculation>(std::move(function)))
        , m_usesPlace(usesPlace)
    {
    }

    /// Sets how an integer is changed, whose result may be one that a double does not hold. Without it, such a result
    /// is no result.
    using ExactFunction = std::function<QVariant(const QVariant &integer)>;
    void setExactFunction(ExactFunction function)
    {
        m_exact = std::make_shared<const ExactFunction>(std::move(function));
    }

    bool usesPlace() const { return m_usesPlace; }
    /// The number that replaces an object's value, of whose type it is if that type holds it. Invalid if there is no
    /// finite one, or if it would not be exact: see isInexact.
    QVariant value(const QVariant &own, qsizetype index = 0, qsizetype count = 1) const;
    /// Whether the only thing against a value is that a double would not hold its integer of 64 bits.
    bool isInexact(const QVariant &own, qsizetype index = 0, qsizetype count = 1) const;
    double number(double own, qsizetype index = 0, qsizetype count = 1) const;
    using Numbers = std::shared_ptr<const std::vector<double>>;
    /// The new numbers of several objects, in their order; not finite where there is none. They are calculated once:
    /// who asks again for the same own numbers, as the write after a check does, gets the same list.
    Numbers numbers(const Numbers &own) const;

    /// The change that a value is; null if it is none.
    static const ZelNumberChange *of(const QVariant &value);
    /// What a user's step makes of a control's value: a number of one number; of several different values, or of a
    /// change of them, a change of each object's own number. Where there is no number, the step starts at the fallback.
    /// Integers are stepped with the exact function, if there is one.
    static QVariant stepped(const QVariant &value, const std::function<double(double)> &step, double fallback = 0,
                            const ExactFunction &exact = {});
    /// A value as a number. NaN for an absent value and any other that is no number, and for an integer that a double
    /// cannot hold exactly.
    static double ownNumber(const QVariant &value);

    /// Whether they are copies of one change.
    friend bool operator==(const ZelNumberChange &a, const ZelNumberChange &b)
    {
        return a.m_calculation == b.m_calculation;
    }

private:
    /// What copies of a change have in common.
    struct Calculation
    {
        explicit Calculation(Function f)
            : function(std::move(f))
        {
        }
        const Function function;
        Numbers own; // for which the numbers were asked last
        Numbers changed;
    };

    std::shared_ptr<Calculation> m_calculation;
    std::shared_ptr<const ExactFunction> m_exact;
    bool m_usesPlace = false;
};
Q_DECLARE_METATYPE(ZelNumberChange)
