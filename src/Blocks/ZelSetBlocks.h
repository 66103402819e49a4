// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelCollectionBlocks.h"
#include "Core/Values/ZelOrderedSet.h"

#include <QSet>
#include <vector>

/// The operations of sets. See ZelBlocks.h.
template<typename Set> class ZelSetBlocks : public ZelElementBlocks<ZelSetBlocks<Set>>
{
public:
    using Element = typename Set::value_type;

    explicit ZelSetBlocks(Set &set)
        : m_set(set)
    {
    }

    template<typename Function> bool visit(const Function &function) const
    {
        for (const Element &element : std::as_const(m_set)) {
            if (!function(element))
                return false;
        }
        return true;
    }

    /// Calls the block for every element, on several threads.
    template<typename Block> void apply(const Block &block) const
    {
        if (!ZelRequireBlock(block))
            return;
        std::vector<const Element *> elements; // a vector can be divided among threads, a hash can only be walked
        elements.reserve(size_t(m_set.size()));
        for (const Element &element : std::as_const(m_set))
            elements.push_back(&element);
        ZelForEachConcurrently(elements.cbegin(), elements.cend(),
                               [&](const Element *element) { std::invoke(block, *element); });
    }

    /// Any element for which the block answers true.
    template<typename Block> ZelMatch<Element> match(const Block &block) const
    {
        if (ZelRequireBlock(block)) {
            for (const Element &element : std::as_const(m_set)) {
                if (std::invoke(block, element))
                    return element;
            }
        }
        return {};
    }

    /// The elements for which the block answers true.
    template<typename Block> QSet<Element> select(const Block &block) const
    {
        QSet<Element> selected;
        if (ZelRequireBlock(block)) {
            for (const Element &element : std::as_const(m_set)) {
                if (std::invoke(block, element))
                    selected.insert(element);
            }
        }
        return selected;
    }

    /// The block's results, each once: a QSet, or a ZelOrderedSet of QVariants, which a QSet cannot hold.
    template<typename Block> auto map(const Block &block) const
    {
        using Result = ZelBlockResult<Block, const Element &>;
        constexpr bool isVariant = std::is_same_v<Result, QVariant>;
        std::conditional_t<isVariant, ZelOrderedSet<Result>, QSet<Result>> mapped;
        if (ZelRequireBlock(block)) {
            mapped.reserve(m_set.size());
            for (const Element &element : std::as_const(m_set)) {
                if constexpr (isVariant)
                    mapped.append(ZelStored(Result(std::invoke(block, element))));
                else
                    mapped.insert(Result(std::invoke(block, element)));
            }
        }
        return mapped;
    }

    /// Keeps the elements for which the block answers true, when all have been asked.
    template<typename Block> void performSelect(const Block &block) const requires(!std::is_const_v<Set>)
    {
        using Iterator = typename Set::const_iterator;
        if (!ZelRequireBlock(block))
            return;
        ZelRemoveFailing(
            m_set, [](const Iterator &element) -> const Element & { return *element; },
            [&](const Iterator &element) { return !std::invoke(block, *element); },
            [](Set &kept, const Iterator &element) { kept.insert(*element); });
    }

    /// Replaces the contents by the block's results.
    template<typename Block> void performMap(const Block &block) const requires(!std::is_const_v<Set>)
    {
        if (ZelRequireBlock(block))
            m_set = map([&](const Element &element) { return Element(std::invoke(block, element)); });
    }

private:
    Set &m_set;
};
