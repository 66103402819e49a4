// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include <functional>

class ZelValueSummary;

/// Tells people the different values of many objects.
class ZelValueSummaryText
{
public:
    using TextForValue = std::function<QString(const QVariant &)>;

    /// For instance "3 values: 12 pt (5), 14 pt (2), 16 pt", and below it the range if that is wanted and the values
    /// are numbers. Null unless there are several values.
    static QString of(const ZelValueSummary &summary, const TextForValue &textForValue, bool tellsRange);
};
