// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QString>
#include <QVariant>
#include <memory>

/// Turns values into texts for people, and the texts back into values.
///
/// A formatter may serve many fields; a field whose formatter was changed must be told (setFormatter again).
class ZEL_EXPORT ZelFormatter
{
public:
    using Ptr = std::shared_ptr<const ZelFormatter>;

    /// A part of a text; an empty range stands for no part.
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
    /// Reads the value that a text means, which may be absent. Answers false, with a reason for people, if the text
    /// means no value.
    virtual bool objectValueForString(const QString &text, QVariant *value, QString *error) const = 0;
    /// The part of a shown text that is the unit. It is drawn dimmed.
    virtual Range unitRange(const QString &) const { return {}; }
};
