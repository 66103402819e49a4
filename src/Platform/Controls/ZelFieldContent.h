// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelFormatter.h"

#include <functional>

/// Answers why a value cannot be taken, as a text for people; null where it can.
using ZelValueCheck = std::function<QString(const QVariant &value)>;

/// The value behind a text field: which texts show it, and which value a text means.
class ZelFieldContent
{
public:
    QVariant value;
    QString nullPlaceholder;
    ZelFormatter::Ptr formatter;
    ZelValueCheck check;

    /// Empty for absent values and selection markers.
    QString displayString() const;
    QString editingString() const;
    /// What stands in the field instead of a text: the null placeholder or the marker's name.
    QString placeholder() const;
    /// Without a formatter the value is the text; an empty text is an absent value then. The error, not null, is left
    /// non-empty where there is no value, or one that the check refuses.
    bool parse(const QString &text, QVariant *result, QString *error) const;
};
