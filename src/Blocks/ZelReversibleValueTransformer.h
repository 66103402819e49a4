// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelValueTransformer.h"
#include "Core/ZelExport.h"

/// A value transformer made of functions for both directions.
class ZEL_EXPORT ZelReversibleValueTransformer : public ZelValueTransformer
{
public:
    /// Asserts "forwardBlock != nil" and "reverseBlock".
    ZelReversibleValueTransformer(const Block &forwardBlock, const Block &reverseBlock);

    bool allowsReverseTransformation() const override { return true; }
    QVariant reverseTransformedValue(const QVariant &value) const override;
};
