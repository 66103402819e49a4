// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelBlockSupport.h"

/// The operations that are the same for every kind of collection. See ZelBlocks.h.
///
/// The kind offers `visit(function)`, which calls the function with each element (key and value, index) until it
/// answers false, and answers whether it came to the end; and `select(block)`, for collections that can be changed also
/// `performSelect(block)`.
template<typename Kind> class ZelCollectionBlocks
{
public:
    /// Calls the block for every element in order.
    template<typename Block> void each(const Block &block) const
    {
        if (!ZelRequireBlock(block))
            return;
        kind().visit([&](const auto &...element) {
            std::invoke(block, element...);
            return true;
        });
    }

    /// Whether the block answers true for any element.
    template<typename Block> bool any(const Block &block) const
    {
        return ZelRequireBlock(block) &&
               !kind().visit([&](const auto &...element) { return !std::invoke(block, element...); });
    }
    /// Whether the block answers true for no element.
    template<typename Block> bool none(const Block &block) const
    {
        return ZelRequireBlock(block) &&
               kind().visit([&](const auto &...element) { return !std::invoke(block, element...); });
    }

    /// Whether the block answers true for every element; true where there is none. Stops at the first false.
    template<typename Block> bool all(const Block &block) const
    {
        return ZelRequireBlock(block) &&
               kind().visit([&](const auto &...element) { return bool(std::invoke(block, element...)); });
    }

    /// What select() answers for the negated block.
    template<typename Block> auto reject(const Block &block) const
    {
        return ZelRequireBlock(block) ? kind().select(ZelNegated(block)) : decltype(kind().select(ZelNegated(block)))();
    }

    /// What performSelect() does for the negated block.
    template<typename Block> void performReject(const Block &block) const
    {
        if (ZelRequireBlock(block))
            kind().performSelect(ZelNegated(block));
    }

private:
    const Kind &kind() const { return static_cast<const Kind &>(*this); }
};

/// The operations of collections whose elements are single values.
template<typename Kind> class ZelElementBlocks : public ZelCollectionBlocks<Kind>
{
public:
    /// Replaces the value by block(value, element) for every element in order, beginning with the initial one; answers
    /// the last value.
    template<typename Value, typename Block> Value reduce(Value value, const Block &block) const
    {
        if (ZelRequireBlock(block)) {
            static_cast<const Kind &>(*this).visit([&](const auto &element) {
                value = std::invoke(block, std::move(value), element);
                return true;
            });
        }
        return value;
    }
};
