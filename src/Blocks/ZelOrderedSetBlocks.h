// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelListBlocks.h"
#include "Core/Values/ZelOrderedSet.h"

/// The operations of ordered sets; select() answers a list. See ZelBlocks.h.
template<typename Set> class ZelOrderedSetBlocks : public ZelSequenceBlocks<ZelOrderedSetBlocks<Set>, Set>
{
public:
    using Element = typename Set::value_type;
    using ZelSequenceBlocks<ZelOrderedSetBlocks, Set>::ZelSequenceBlocks;

    /// The block's results, in order, each once.
    template<typename Block> auto map(const Block &block) const
    {
        using Result = ZelBlockResult<Block, const Element &>;
        ZelOrderedSet<Result> mapped;
        if (ZelRequireBlock(block)) {
            mapped.reserve(this->m_collection.size());
            for (const Element &element : std::as_const(this->m_collection))
                mapped.append(ZelStored(Result(std::invoke(block, element))));
        }
        return mapped;
    }

    /// Calls the block for every element and changes nothing: results that are equal would have no places of their own.
    template<typename Block> void performMap(const Block &block) const requires(!std::is_const_v<Set>)
    {
        this->each(block);
    }
};
