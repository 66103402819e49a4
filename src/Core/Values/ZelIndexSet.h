// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QList>
#include <QMetaType>

/// An ordered set of indexes, held as ranges: a million consecutive indexes cost one range.
class ZEL_EXPORT ZelIndexSet
{
public:
    struct Range
    {
        qsizetype first = 0;
        qsizetype count = 0;
        qsizetype end() const { return first + count; }
        friend bool operator==(const Range &, const Range &) = default;
    };

    ZelIndexSet() = default;
    ZelIndexSet(std::initializer_list<qsizetype> indexes);
    static ZelIndexSet withRange(qsizetype first, qsizetype count);

    bool isEmpty() const { return m_ranges.isEmpty(); }
    qsizetype count() const;
    bool contains(qsizetype index) const;
    /// -1 for an empty set.
    qsizetype first() const { return isEmpty() ? -1 : m_ranges.first().first; }
    qsizetype last() const { return isEmpty() ? -1 : m_ranges.last().end() - 1; }
    /// The indexes of the set that are at least 0 and below the count.
    ZelIndexSet within(qsizetype count) const;
    const QList<Range> &ranges() const { return m_ranges; }

    void insert(qsizetype index) { insert(Range{index, 1}); }
    /// A range of no indexes changes nothing.
    void insert(Range range);
    void remove(qsizetype index) { remove(Range{index, 1}); }
    void remove(Range range);
    void unite(const ZelIndexSet &other);

    template<typename Function> void forEach(Function function) const
    {
        for (const Range &range : m_ranges)
            for (qsizetype i = range.first; i < range.end(); ++i)
                function(i);
    }

    friend bool operator==(const ZelIndexSet &, const ZelIndexSet &) = default;

private:
    QList<Range> m_ranges; // ascending, neither overlapping nor touching
};
Q_DECLARE_METATYPE(ZelIndexSet)
