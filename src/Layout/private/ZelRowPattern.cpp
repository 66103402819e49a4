// SPDX-License-Identifier: MIT
#include "Layout/private/ZelRowPattern.h"

#include <algorithm>

namespace {

using Constraint = ZelAxisConstraint;
using Link = ZelRowPattern::Link;

/// Gives each constraint of some boxes that are tied together the role that it has in a row.
class Recognizer
{
public:
    Recognizer(std::span<const int> boxes, const ZelAxisConstraints &all)
        : m_boxes(boxes)
        , m_all(all)
        , m_entries(boxes.size())
    {
        for (size_t i = 0; i < boxes.size(); ++i)
            m_entries[i].member.box = boxes[i];
    }

    bool assign(int index)
    {
        const Constraint &c = m_all[size_t(index)];
        if (c.hasOffsets)
            return false;
        if (c.second.edge == Constraint::None)
            return c.first.edge == Constraint::Length && assignLimit(c, index);
        if (c.multiplier != 1)
            return false;
        Constraint swapped = c;
        std::swap(swapped.first, swapped.second);
        swapped.relation = Constraint::Relation(-c.relation);
        return assignOriented(c, {index, 1}) || assignOriented(swapped, {index, -1});
    }

    std::optional<ZelRowPattern> finish()
    {
        if (!putInOrder() || !hasConsistentPriorities())
            return {};
        return std::move(m_row);
    }

private:
    struct Entry
    {
        ZelRowPattern::Member member;
        int next = -1;
        int previous = -1;
        int boundOn = -1; // whose start the member's bound holds
        int equalTo = -1; // whose length is its own
    };

    int placeOf(int box) const
    {
        const auto isDense = m_boxes.back() - m_boxes.front() + 1 == int(m_boxes.size());
        return isDense ? box - m_boxes.front()
                       : int(std::lower_bound(m_boxes.begin(), m_boxes.end(), box) - m_boxes.begin());
    }
    Entry &entry(int box) { return m_entries[size_t(placeOf(box))]; }

    static bool set(Link &link, Link value)
    {
        if (link.isSet())
            return false;
        link = value;
        return true;
    }

    bool assignLimit(const Constraint &c, int index)
    {
        if (!c.isRequired() || !c.first.isBox())
            return false;
        ZelRowPattern::Member &member = entry(c.first.box).member;
        return (c.relation == Constraint::NotAbove || set(member.minimum, {index, 1})) &&
               (c.relation == Constraint::NotBelow || set(member.maximum, {index, 1}));
    }

    bool assignOriented(const Constraint &c, Link link)
    {
        if (!c.first.isBox())
            return false;
        if (c.second.isBox())
            return assignBetweenBoxes(c, link);
        if (c.second.edge == Constraint::Start) {
            if (c.first.edge != Constraint::Start || c.relation != Constraint::Equal || !c.isRequired() || m_first >= 0)
                return false;
            m_first = placeOf(c.first.box);
            return set(m_entries[size_t(m_first)].member.gap, link);
        }
        if (c.second.edge != Constraint::End)
            return false;
        if (c.relation == Constraint::Equal && c.first.edge == Constraint::End) {
            m_endBox = c.first.box;
            return set(m_row.end, link);
        }
        if (c.relation != Constraint::NotBelow ||
            (c.first.edge != Constraint::Start && c.first.edge != Constraint::End))
            return false;
        m_lastBoundBox = c.first.box;
        m_row.isLastBoundOnEnd = c.first.edge == Constraint::End;
        return set(m_row.lastBound, link);
    }

    bool assignBetweenBoxes(const Constraint &c, Link link)
    {
        const int place = placeOf(c.first.box);
        const int other = placeOf(c.second.box);
        Entry &entry = m_entries[size_t(place)];
        Entry &before = m_entries[size_t(other)];
        if (c.first.edge == Constraint::Length && c.second.edge == Constraint::Length) {
            if (entry.equalTo >= 0 || c.relation != Constraint::Equal || !c.isRequired() || c.bias() != 0)
                return false;
            entry.equalTo = other;
            ++m_equalities;
            return true;
        }
        if (c.first.edge != Constraint::Start)
            return false;
        if (c.second.edge == Constraint::End && c.relation == Constraint::Equal) {
            if (before.next >= 0 || entry.previous >= 0)
                return false;
            before.next = place;
            entry.previous = other;
            return set(entry.member.gap, link);
        }
        if (c.second.edge != Constraint::Start || c.relation != Constraint::NotAbove)
            return false;
        before.boundOn = place;
        return set(before.member.bound, link);
    }

    bool putInOrder()
    {
        m_row.members.reserve(m_entries.size());
        int last = -1;
        int equalities = 0;
        for (int i = m_first; i >= 0 && m_row.members.size() < m_entries.size(); i = m_entries[size_t(i)].next) {
            const Entry &entry = m_entries[size_t(i)];
            if (entry.boundOn >= 0 && entry.boundOn != entry.next)
                return false;
            equalities += last >= 0 && (entry.equalTo == last || m_entries[size_t(last)].equalTo == i);
            m_row.members.push_back(entry.member);
            last = i;
        }
        if (m_row.members.size() != m_entries.size() || last < 0)
            return false;
        const int lastBox = m_entries[size_t(last)].member.box;
        if ((m_endBox >= 0 && m_endBox != lastBox) || (m_lastBoundBox >= 0 && m_lastBoundBox != lastBox))
            return false;
        m_row.hasEqualLengths = equalities > 0;
        return equalities == m_equalities && (equalities == 0 || equalities == int(m_entries.size()) - 1);
    }

    bool hasConsistentPriorities()
    {
        const auto priority = [this](const Link &link) { return m_all[size_t(link.constraint)].priority; };
        if (m_row.members.size() > 1)
            m_row.gapPriority = priority(m_row.members[1].gap);
        const float gaps = m_row.gapPriority;
        float bounds = 0;
        for (size_t i = 0; i < m_row.members.size(); ++i) {
            const ZelRowPattern::Member &member = m_row.members[i];
            if (i > 0 && priority(member.gap) != gaps)
                return false;
            if (!member.bound.isSet())
                continue;
            if (priority(member.bound) <= gaps || (bounds > 0 && priority(member.bound) != bounds))
                return false;
            bounds = priority(member.bound);
        }
        const bool isRequired = gaps >= 1000;
        const float end = m_row.end.isSet() ? priority(m_row.end) : 0;
        if (m_row.end.isSet() && (end < 1 || (end >= gaps && !isRequired)))
            return false;
        if (!m_row.lastBound.isSet())
            return true;
        const float lastBound = priority(m_row.lastBound);
        return m_row.end.isSet() && lastBound > end && lastBound < gaps;
    }

    std::span<const int> m_boxes;
    const ZelAxisConstraints &m_all;
    std::vector<Entry> m_entries;
    ZelRowPattern m_row;
    int m_first = -1;
    int m_endBox = -1;
    int m_lastBoundBox = -1;
    int m_equalities = 0;
};

} // namespace

std::optional<ZelRowPattern> ZelRowPattern::recognize(std::span<const int> boxes, std::span<const int> constraints,
                                                      const ZelAxisConstraints &all)
{
    Recognizer recognizer(boxes, all);
    for (const int constraint : constraints) {
        if (!recognizer.assign(constraint))
            return {};
    }
    return recognizer.finish();
}
