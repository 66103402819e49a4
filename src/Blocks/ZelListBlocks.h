// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelCollectionBlocks.h"

#include <QList>
#include <QVarLengthArray>
#include <algorithm>

/// What lists and ordered sets have in common: elements with a place. See ZelBlocks.h.
template<typename Kind, typename Collection> class ZelSequenceBlocks : public ZelElementBlocks<Kind>
{
public:
    using Element = typename Collection::value_type;

    explicit ZelSequenceBlocks(Collection &collection)
        : m_collection(collection)
    {
    }

    template<typename Function> bool visit(const Function &function) const
    {
        for (const Element &element : std::as_const(m_collection)) {
            if (!function(element))
                return false;
        }
        return true;
    }

    /// Calls the block for every element, on several threads and in no order.
    template<typename Block> void apply(const Block &block) const
    {
        if (ZelRequireBlock(block))
            ZelForEachConcurrently(m_collection.cbegin(), m_collection.cend(),
                                   [&](const Element &element) { std::invoke(block, element); });
    }

    /// The first element for which the block answers true.
    template<typename Block> ZelMatch<Element> match(const Block &block) const
    {
        if (ZelRequireBlock(block)) {
            for (const Element &element : std::as_const(m_collection)) {
                if (std::invoke(block, element))
                    return element;
            }
        }
        return {};
    }

    /// The elements for which the block answers true.
    template<typename Block> QList<Element> select(const Block &block) const
    {
        QList<Element> selected;
        if (ZelRequireBlock(block)) {
            for (const Element &element : std::as_const(m_collection)) {
                if (std::invoke(block, element))
                    selected.append(element);
            }
        }
        return selected;
    }

    /// Whether the block answers true for each element and the one at its place in the other collection. False if there
    /// is no element, or if the other collection has none at the place of one; further elements of the other collection
    /// are not looked at.
    template<typename Other, typename Block> bool corresponds(const Other &other, const Block &block) const
    {
        bool result = false;
        if (!ZelRequireBlock(block))
            return result;
        const qsizetype count = other.size();
        qsizetype index = 0;
        visit([&](const Element &element) {
            result = index < count && std::invoke(block, element, other.at(index));
            ++index;
            return result;
        });
        return result;
    }

    /// Removes the elements for which the block answers false, when all have been asked.
    template<typename Block> void performSelect(const Block &block) const requires(!std::is_const_v<Collection>)
    {
        if (!ZelRequireBlock(block))
            return;
        QVarLengthArray<bool, 1024> keeps(m_collection.size());
        bool *next = keeps.data();
        for (const Element &element : std::as_const(m_collection))
            *next++ = bool(std::invoke(block, element));
        const bool *keep = keeps.constData();
        if (std::find(keep, keep + keeps.size(), false) != keep + keeps.size())
            m_collection.removeIf([&](const Element &) { return !*keep++; });
    }

protected:
    Collection &m_collection;
};

template<typename List> class ZelListBlocks : public ZelSequenceBlocks<ZelListBlocks<List>, List>
{
public:
    using Element = typename List::value_type;
    using ZelSequenceBlocks<ZelListBlocks, List>::ZelSequenceBlocks;

    /// The block's results, in order.
    template<typename Block> auto map(const Block &block) const
    {
        using Result = ZelBlockResult<Block, const Element &>;
        QList<Result> mapped;
        if (!ZelRequireBlock(block))
            return mapped;
        if constexpr (std::is_arithmetic_v<Result>) { // appending takes longer than most blocks here
            mapped.resize(this->m_collection.size());
            Result *next = mapped.data();
            for (const Element &element : std::as_const(this->m_collection))
                *next++ = std::invoke(block, element);
        } else {
            mapped.reserve(this->m_collection.size());
            for (const Element &element : std::as_const(this->m_collection))
                mapped.append(ZelStored(Result(std::invoke(block, element))));
        }
        return mapped;
    }

    /// Replaces the elements by the block's results, when all have been asked. A result that equals its element is not
    /// stored.
    template<typename Block> void performMap(const Block &block) const requires(!std::is_const_v<List>)
    {
        if (!ZelRequireBlock(block))
            return;
        List changed;
        Element *target = nullptr; // the data of `changed`, which is filled at the first difference
        qsizetype index = 0;
        for (const Element &element : std::as_const(this->m_collection)) {
            Element mapped = ZelStored(Element(std::invoke(block, element)));
            if (!ZelIsSameElement(mapped, element)) {
                if (!target) {
                    changed = this->m_collection;
                    target = changed.data();
                }
                target[index] = std::move(mapped);
            }
            ++index;
        }
        if (target)
            this->m_collection = std::move(changed);
    }
};
