// SPDX-License-Identifier: MIT
#include "Blocks/ZelValueTransformer.h"

#include "Blocks/ZelReversibleValueTransformer.h"
#include "Core/Errors/ZelAssertions.h"

ZelValueTransformer::ZelValueTransformer(const Block &forwardBlock, const Block &reverseBlock)
    : m_forwardBlock(forwardBlock)
    , m_reverseBlock(reverseBlock)
{
    ZelRequire(bool(m_forwardBlock), "forwardBlock != nil");
}

QSharedPointer<ZelValueTransformer> ZelValueTransformer::transformerWithBlock(const Block &block)
{
    return QSharedPointer<ZelValueTransformer>::create(block);
}

QSharedPointer<ZelValueTransformer> ZelValueTransformer::reversibleTransformerWithBlock(const Block &block)
{
    return reversibleTransformerWithForwardBlock(block, block);
}

QSharedPointer<ZelValueTransformer>
ZelValueTransformer::reversibleTransformerWithForwardBlock(const Block &forwardBlock, const Block &reverseBlock)
{
    return QSharedPointer<ZelReversibleValueTransformer>::create(forwardBlock, reverseBlock);
}

QVariant ZelValueTransformer::transformedValue(const QVariant &value) const
{
    return m_forwardBlock ? m_forwardBlock(value) : QVariant();
}
