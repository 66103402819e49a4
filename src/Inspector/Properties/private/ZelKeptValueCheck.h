// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

/// Whether a model has kept a value that was written.
class ZelKeptValueCheck
{
public:
    /// What only the model's type makes of the value, such as a rounded number, counts as kept, and so does what people
    /// cannot tell from it. A marker for several values is another value.
    static bool isKept(const QVariant &written, const QVariant &kept);
};
