// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Values/ZelAbstractValueTransformer.h"

class ZelPropertyDomain;

/// Why a property does not take what was entered for it, in words for people.
class ZelValueRefusal
{
public:
    /// Null if the property takes the value. Without a transformer, fractions that would be rounded away are refused,
    /// too. The limits of numbers are told as the transformer, which may be null, shows them.
    static QString reason(const ZelPropertyDomain &domain, const QVariant &value,
                          const ZelValueTransformerPtr &transformer);
};
