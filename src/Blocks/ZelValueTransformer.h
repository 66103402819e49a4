// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/ZelExport.h"

#include <functional>

/// A value transformer made of functions.
class ZEL_EXPORT ZelValueTransformer : public ZelAbstractValueTransformer
{
public:
    using Block = std::function<QVariant(const QVariant &value)>;

    /// Asserts "forwardBlock != nil". Without a forward block every value becomes absent.
    explicit ZelValueTransformer(const Block &forwardBlock, const Block &reverseBlock = {});

    static QSharedPointer<ZelValueTransformer> transformerWithBlock(const Block &block);
    /// Uses the same block in both directions.
    static QSharedPointer<ZelValueTransformer> reversibleTransformerWithBlock(const Block &block);
    static QSharedPointer<ZelValueTransformer> reversibleTransformerWithForwardBlock(const Block &forwardBlock,
                                                                                     const Block &reverseBlock);

    const Block &forwardBlock() const { return m_forwardBlock; }
    const Block &reverseBlock() const { return m_reverseBlock; }

    QVariant transformedValue(const QVariant &value) const override;

private:
    Block m_forwardBlock;
    Block m_reverseBlock;
};
