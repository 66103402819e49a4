// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>
#include <memory>

/// Turns values into texts for people, and the texts back into values.
///
/// A formatter may serve many fields; a field whose formatter was changed must be told (setFormatter again).
class ZelFormatter
{
public:
    using Ptr = std::shared_ptr<const ZelFormatter>;

    /// A stretch of a text; empty for none.
    struct Range
    {
        qsizetype start = 0;
        qsizetype length = 0;
    };

    virtual ~ZelFormatter() = default;
    /// The text shown for a value; a null text for an absent one.
    virtual QString stringForObjectValue(const QVariant &value) const = 0;
    /// The text that is edited; by default the text shown.
    virtual QString editingStringForObjectValue(const QVariant &value) const { return stringForObjectValue(value); }
    /// The value that a text means, absent included. False, with a reason for people, for a text that means none.
    virtual bool objectValueForString(const QString &text, QVariant *value, QString *error) const = 0;
    /// The part of a text shown for a value that is its unit and drawn dimmed.
    virtual Range unitRange(const QString &) const { return {}; }
};
