// SPDX-License-Identifier: MIT
#include "Core/Values/ZelIndexSet.h"

#include <algorithm>

namespace {

/// The first range whose end is not before the index: the first that a range beginning there can overlap or touch.
auto firstEndingFrom(QList<ZelIndexSet::Range> &ranges, qsizetype index)
{
    return std::lower_bound(ranges.begin(), ranges.end(), index,
                            [](const ZelIndexSet::Range &range, qsizetype i) { return range.end() < i; });
}

} // namespace

ZelIndexSet::ZelIndexSet(std::initializer_list<qsizetype> indexes)
{
    for (qsizetype index : indexes)
        insert(index);
}

ZelIndexSet ZelIndexSet::withRange(qsizetype first, qsizetype count)
{
    ZelIndexSet set;
    set.insert(Range{first, count});
    return set;
}

qsizetype ZelIndexSet::count() const
{
    qsizetype sum = 0;
    for (const Range &range : m_ranges)
        sum += range.count;
    return sum;
}

bool ZelIndexSet::contains(qsizetype index) const
{
    const auto range = std::upper_bound(m_ranges.begin(), m_ranges.end(), index,
                                        [](qsizetype i, const Range &r) { return i < r.end(); });
    return range != m_ranges.end() && range->first <= index;
}

void ZelIndexSet::insert(Range range)
{
    if (range.count <= 0)
        return;
    auto from = firstEndingFrom(m_ranges, range.first);
    auto to = from;
    qsizetype first = range.first;
    qsizetype end = range.end();
    for (; to != m_ranges.end() && to->first <= range.end(); ++to) {
        first = std::min(first, to->first);
        end = std::max(end, to->end());
    }
    const auto at = m_ranges.erase(from, to);
    m_ranges.insert(at, Range{first, end - first});
}

void ZelIndexSet::remove(Range range)
{
    if (range.count <= 0)
        return;
    QList<Range> left;
    left.reserve(m_ranges.size() + 1);
    for (const Range &r : std::as_const(m_ranges)) {
        const qsizetype before = std::min(r.end(), range.first) - r.first;
        if (before > 0)
            left.append({r.first, before});
        const qsizetype from = std::max(r.first, range.end());
        if (from < r.end())
            left.append({from, r.end() - from});
    }
    m_ranges = left;
}

void ZelIndexSet::unite(const ZelIndexSet &other)
{
    for (const Range &range : other.m_ranges)
        insert(range);
}

ZelIndexSet ZelIndexSet::within(qsizetype count) const
{
    ZelIndexSet set;
    for (const Range &range : m_ranges) {
        const qsizetype first = std::max<qsizetype>(range.first, 0);
        const qsizetype end = std::min(range.end(), count);
        if (first < end)
            set.m_ranges.append({first, end - first});
    }
    return set;
}
