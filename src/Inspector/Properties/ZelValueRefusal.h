// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelAbstractValueTransformer.h"

class ZelPropertyDomain;

/// Why a property does not take what was entered for it, in words for people.
class ZelValueRefusal
{
public:
    /// Null where it takes the value, and as it is: without a transformer, fractions are refused that would be rounded
    /// away. Limits of numbers are told as the transformer, which may be null, shows them.
    static QString reason(const ZelPropertyDomain &domain, const QVariant &value,
                          const ZelValueTransformerPtr &transformer);
};
