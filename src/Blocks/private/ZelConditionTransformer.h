// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Values/ZelAbstractValueTransformer.h"

#include <atomic>

/// Compares values with the argument in its name: whether "ZelEquals(3)", "ZelIsKind(Rectangle)" and the like hold. A
/// selection marker stays what it is, so that the condition counts as false.
///
/// The argument is read as a value of the type that it is compared with, since it cannot be known before: as a key of
/// an enumeration, a number, a word for a boolean, a text. If it is none, the condition is false, which is a warning
/// once.
class ZelConditionTransformer : public ZelAbstractValueTransformer
{
public:
    struct Row
    {
        const char *name;
        const char *example;
        /// Says what is wrong with an argument for any type; null if nothing is.
        QString (*mistakeIn)(const QString &argument);
        /// Whether the condition holds for a value, which is no marker; nothing if it makes no sense for it.
        std::optional<bool> (*holds)(const QVariant &value, const QString &argument);
    };
    ZelConditionTransformer(const Row &row, const QString &argument)
        : m_row(row)
        , m_argument(argument)
    {
    }

    /// Registers a factory for each condition, and ZelIsApplicable.
    static void registerAll();

    /// Whether the condition makes sense for a value, which is no marker.
    bool takes(const QVariant &value) const { return m_row.holds(value, m_argument).has_value(); }
    QVariant transformedValue(const QVariant &value) const override;
    QString transformedValueClass() const override { return QStringLiteral("bool"); }

private:
    void warn(const QVariant &value) const;

    const Row &m_row;
    QString m_argument;
    mutable std::atomic_flag m_hasWarned;
};
