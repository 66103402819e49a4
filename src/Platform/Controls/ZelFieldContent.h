// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelFormatter.h"

/// The value behind a text field: which texts show it, and which value a text means.
class ZelFieldContent
{
public:
    QVariant value;
    QString nullPlaceholder;
    ZelFormatter::Ptr formatter;

    /// Empty for absent values and selection markers.
    QString displayString() const;
    QString editingString() const;
    /// What stands in the field instead of a text: the null placeholder or the marker's name.
    QString placeholder() const;
    /// Without a formatter the value is the text; an empty text is an absent value then. The error, not null, is left
    /// non-empty where there is no value.
    bool parse(const QString &text, QVariant *result, QString *error) const;
};
