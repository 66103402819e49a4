// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelCollectionBlocks.h"
#include "Core/Values/ZelIndexSet.h"

#include <algorithm>
#include <vector>

/// The operations of index sets; an empty result is nothing rather than an empty set. See ZelBlocks.h.
template<typename Set> class ZelIndexSetBlocks : public ZelElementBlocks<ZelIndexSetBlocks<Set>>
{
public:
    explicit ZelIndexSetBlocks(Set &set)
        : m_set(set)
    {
    }

    template<typename Function> bool visit(const Function &function) const
    {
        for (const ZelIndexSet::Range &range : m_set.ranges()) {
            for (qsizetype index = range.first, end = range.end(); index < end; ++index) {
                if (!function(index))
                    return false;
            }
        }
        return true;
    }

    /// Calls the block for every index, on several threads and in no order.
    template<typename Block> void apply(const Block &block) const
    {
        if (!ZelRequireBlock(block))
            return;
        const QList<ZelIndexSet::Range> &ranges = m_set.ranges();
        std::vector<qsizetype> ends; // of the ranges, counted in indexes
        qsizetype count = 0;
        for (const ZelIndexSet::Range &range : ranges)
            ends.push_back(count += range.count);
        ZelPerformConcurrently(count, [&](qsizetype first, qsizetype last) {
            auto number = std::upper_bound(ends.cbegin(), ends.cend(), first) - ends.cbegin();
            while (first < last) {
                const qsizetype end = ends[size_t(number)];
                const qsizetype offset = ranges.at(number).end() - end;
                for (; first < std::min(end, last); ++first)
                    std::invoke(block, offset + first);
                ++number;
            }
        });
    }

    /// The first index for which the block answers true; -1 if there is none.
    template<typename Block> qsizetype match(const Block &block) const
    {
        qsizetype found = -1;
        if (ZelRequireBlock(block)) {
            visit([&](qsizetype index) {
                if (std::invoke(block, index))
                    found = index;
                return found < 0;
            });
        }
        return found;
    }

    /// The indexes for which the block answers true.
    template<typename Block> std::optional<ZelIndexSet> select(const Block &block) const
    {
        if (!ZelRequireBlock(block))
            return {};
        Collector selected;
        visit([&](qsizetype index) {
            if (std::invoke(block, index))
                selected.add(index);
            return true;
        });
        return selected.result();
    }

    /// The set of the block's results.
    template<typename Block> std::optional<ZelIndexSet> map(const Block &block) const
    {
        if (!ZelRequireBlock(block))
            return {};
        Collector mapped;
        visit([&](qsizetype index) {
            mapped.add(qsizetype(std::invoke(block, index)));
            return true;
        });
        return mapped.result();
    }

    /// Whether the block answers true for each index and the one at its place in the other set; see ZelSequenceBlocks.
    template<typename Block> bool corresponds(const ZelIndexSet &other, const Block &block) const
    {
        bool result = false;
        if (!ZelRequireBlock(block))
            return result;
        auto range = other.ranges().cbegin();
        qsizetype offset = 0;
        visit([&](qsizetype index) {
            result = range != other.ranges().cend() && std::invoke(block, index, range->first + offset);
            if (result && ++offset == range->count) {
                ++range;
                offset = 0;
            }
            return result;
        });
        return result;
    }

    /// Removes the indexes for which the block answers false, when all have been asked.
    template<typename Block> void performSelect(const Block &block) const requires(!std::is_const_v<Set>)
    {
        if (ZelRequireBlock(block))
            m_set = select(block).value_or(ZelIndexSet());
    }

    /// Replaces the indexes by the block's results, when all have been asked.
    template<typename Block> void performMap(const Block &block) const requires(!std::is_const_v<Set>)
    {
        if (ZelRequireBlock(block))
            m_set = map(block).value_or(ZelIndexSet());
    }

private:
    /// Inserts indexes that mostly follow each other as ranges.
    class Collector
    {
    public:
        void add(qsizetype index)
        {
            if (index != m_run.end() || m_run.count == 0) {
                m_set.insert(m_run);
                m_run = {index, 0};
            }
            ++m_run.count;
        }
        std::optional<ZelIndexSet> result()
        {
            m_set.insert(m_run);
            return m_set.isEmpty() ? std::nullopt : std::optional(std::move(m_set));
        }

    private:
        ZelIndexSet m_set;
        ZelIndexSet::Range m_run;
    };

    Set &m_set;
};
