// SPDX-License-Identifier: MIT
#include "Blocks/ZelReversibleValueTransformer.h"

#include "Core/Errors/ZelAssertions.h"

ZelReversibleValueTransformer::ZelReversibleValueTransformer(const Block &forwardBlock, const Block &reverseBlock)
    : ZelValueTransformer(forwardBlock, reverseBlock)
{
    ZelRequire(bool(reverseBlock), "reverseBlock");
}

QVariant ZelReversibleValueTransformer::reverseTransformedValue(const QVariant &value) const
{
    return reverseBlock() ? reverseBlock()(value) : QVariant();
}
