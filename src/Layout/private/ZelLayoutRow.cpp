// SPDX-License-Identifier: MIT
#include "Layout/private/ZelLayoutRow.h"

#include "Layout/private/ZelLineMinimizer.h"

#include <algorithm>
#include <cmath>

// In a row only the lengths are unknown, and the room that is left over or lacking in the container is a single number.
// The members take it up one priority after the other, the weakest wish first, and within one priority the first member
// first. This keeps the sums of misses of the higher priorities least, as the general solver would. Where a bound lets
// the next member start before this one's end and gap (this one is hidden), the bound counts in place of the length.

namespace {
constexpr double g_infinity = std::numeric_limits<double>::infinity();
constexpr double g_leastRoom = 1e-9;
constexpr float g_required = 1000;
} // namespace

bool ZelLayoutRow::solve(const ZelAxisConstraints &all, const ZelLayoutBoxes &boxes, double length,
                         ZelLayoutSpans &spans)
{
    if (!prepare(all, boxes))
        return false;
    if (m_pattern.hasEqualLengths ? !equalize(all, boxes, length) : !fillContainer(all, length))
        return false;
    place(spans);
    return true;
}

std::optional<double> ZelLayoutRow::fittingLength(const ZelAxisConstraints &all, const ZelLayoutBoxes &boxes)
{
    if (!prepare(all, boxes))
        return {};
    if (m_pattern.hasEqualLengths) {
        if (!equalize(all, boxes, {}))
            return {};
    } else {
        for (State &state : m_states) {
            if (state.compression < ZelLayoutBox::FittingPriority)
                state.length = state.minimum;
        }
    }
    if (!reachesEnd())
        return 0;
    double length = extent(true) - m_pattern.end.in(all);
    if (m_pattern.lastBound.isSet())
        length = std::min(length, extent(m_pattern.isLastBoundOnEnd) - m_pattern.lastBound.in(all));
    return std::max(0.0, length);
}

// ---- the numbers of the members

/// Reads constraints and boxes, and gives each member the length that it wants.
bool ZelLayoutRow::prepare(const ZelAxisConstraints &all, const ZelLayoutBoxes &boxes)
{
    const auto &members = m_pattern.members;
    m_states.resize(members.size());
    m_start = members.front().gap.in(all);
    for (size_t i = 0; i < members.size(); ++i) {
        const ZelLayoutBox &box = boxes[size_t(members[i].box)];
        State &state = m_states[i];
        if (!prepareLimits(state, members[i], all, box))
            return false;
        state.length = std::clamp(box.hint, state.minimum, state.maximum);
        state.hugging = box.hugging;
        state.compression = box.compression;
        state.gapAfter = i + 1 < members.size() ? members[i + 1].gap.in(all) : 0;
        state.boundAfter = members[i].bound.isSet() ? members[i].bound.in(all) : g_infinity;
    }
    if (!m_pattern.hasEqualLengths)
        giveWayToBounds();
    return true;
}

bool ZelLayoutRow::prepareLimits(State &state, const ZelRowPattern::Member &member, const ZelAxisConstraints &all,
                                 const ZelLayoutBox &box) const
{
    state.requiredMinimum = member.minimum.isSet() ? member.minimum.in(all) : -g_infinity;
    state.requiredMaximum = member.maximum.isSet() ? member.maximum.in(all) : g_infinity;
    if (state.requiredMinimum > state.requiredMaximum)
        return false;
    state.minimum = std::clamp(box.minimum, state.requiredMinimum, state.requiredMaximum);
    state.maximum = std::clamp(box.maximum, state.requiredMinimum, state.requiredMaximum);
    return true;
}

/// Shortens a member that is longer than its bound allows: the gap after it would be missed, which weighs more than the
/// member's wish not to be compressed.
void ZelLayoutRow::giveWayToBounds()
{
    for (State &state : m_states) {
        if (state.length > state.cap() && state.compression < m_pattern.gapPriority)
            state.length = std::clamp(state.cap(), state.minimum, state.length);
    }
}

/// The distance from the container's start to the last member's start or end.
double ZelLayoutRow::extent(bool toLastEnd) const
{
    double sum = m_start;
    for (size_t i = 0; i + 1 < m_states.size(); ++i)
        sum += m_states[i].step();
    return toLastEnd ? sum + m_states.back().length : sum;
}

void ZelLayoutRow::place(ZelLayoutSpans &spans) const
{
    double start = m_start;
    for (size_t i = 0; i < m_states.size(); ++i) {
        spans[size_t(m_pattern.members[i].box)] = {start, m_states[i].length};
        start += m_states[i].step();
    }
}

// ---- lengths of their own

bool ZelLayoutRow::fillContainer(const ZelAxisConstraints &all, double length)
{
    if (!reachesEnd())
        return true;
    const auto priority = [&](const ZelRowPattern::Link &link) { return all[size_t(link.constraint)].priority; };
    double canShrink = g_infinity; // before the last bound is missed
    const bool isBoundOnEnd = m_pattern.isLastBoundOnEnd;
    if (m_pattern.lastBound.isSet()) {
        const double bound = length + m_pattern.lastBound.in(all);
        const double missing = bound - extent(isBoundOnEnd);
        if (missing > 0)
            stretch(missing, m_states.size() - (isBoundOnEnd ? 0 : 1), priority(m_pattern.lastBound));
        canShrink = std::max(0.0, extent(isBoundOnEnd) - bound);
    }
    const float end = priority(m_pattern.end);
    const bool isRequired = end >= g_required;
    const float below = isRequired ? g_required : end;
    const double missing = length + m_pattern.end.in(all)-extent(true);
    if (missing > 0)
        return stretch(missing, m_states.size(), below) < g_leastRoom || !isRequired;
    if (isBoundOnEnd)
        return takeAway(std::min(-missing, canShrink), g_infinity, below) < g_leastRoom || !isRequired;
    return takeAway(-missing, canShrink, below) < g_leastRoom || !isRequired;
}

/// Compresses the members; those before the last one may give up a limited part only. Answers what could not be taken.
double ZelLayoutRow::takeAway(double amount, double beforeLast, float below)
{
    while (amount > g_leastRoom) {
        const bool fromAll = beforeLast > g_leastRoom;
        const double part = fromAll ? std::min(amount, beforeLast) : amount;
        const double before = extent(false);
        const double rest = compress(part, fromAll ? 0 : m_states.size() - 1, below);
        beforeLast -= before - extent(false);
        amount -= part - rest;
        if (rest > g_leastRoom)
            break;
    }
    return amount;
}

/// Adds to the lengths of the first members as far as their wishes have a lower priority. Answers what could not be
/// added.
double ZelLayoutRow::stretch(double amount, size_t memberCount, float below)
{
    const auto room = [](const State &s) {
        const double limit = s.length < s.maximum ? s.maximum : s.requiredMaximum;
        return std::min(limit, std::max(s.cap(), s.length)) - s.length;
    };
    const auto level = [](const State &s) { return s.length < s.maximum ? s.hugging : ZelLayoutBox::LimitPriority; };
    while (amount > g_leastRoom) {
        float weakest = below;
        for (size_t i = 0; i < memberCount; ++i) {
            if (level(m_states[i]) < weakest && room(m_states[i]) > g_leastRoom)
                weakest = level(m_states[i]);
        }
        if (weakest >= below)
            break;
        for (size_t i = 0; i < memberCount && amount > 0; ++i) {
            State &state = m_states[i];
            if (level(state) != weakest)
                continue;
            const double part = std::min(room(state), amount);
            state.length += part;
            amount -= part;
        }
    }
    return amount;
}

/// Takes from the lengths of the members, beginning with firstMember, as far as their wishes have a lower priority.
/// Answers what could not be taken.
double ZelLayoutRow::compress(double amount, size_t firstMember, float below)
{
    const auto limit = [](const State &s) {
        if (s.length > s.minimum)
            return s.minimum;
        return s.length > 0 && s.requiredMinimum < 0 ? 0 : s.requiredMinimum;
    };
    const auto level = [](const State &s) {
        if (s.length > s.minimum)
            return s.compression;
        return s.length > 0 ? ZelLayoutBox::LimitPriority : ZelLayoutBox::NotNegativePriority;
    };
    const auto room = [&](const State &s) { return s.length - limit(s); };
    while (amount > g_leastRoom) {
        float weakest = below;
        for (size_t i = firstMember; i < m_states.size(); ++i) {
            if (level(m_states[i]) < weakest && room(m_states[i]) > g_leastRoom)
                weakest = level(m_states[i]);
        }
        if (weakest >= below)
            break;
        for (size_t i = firstMember; i < m_states.size() && amount > 0; ++i) {
            State &state = m_states[i];
            if (level(state) != weakest)
                continue;
            const double part = std::min(room(state), amount);
            state.length -= part;
            amount -= part;
        }
    }
    return amount;
}

// ---- equal lengths

/// Finds the one length that all members have in a container of that length; without one, in a container that fits.
/// Answers false if the general solver must do it.
bool ZelLayoutRow::equalize(const ZelAxisConstraints &all, const ZelLayoutBoxes &boxes, std::optional<double> length)
{
    ZelLineMinimizer line;
    addLengthGoals(line, boxes);
    const ZelRowPattern::Link first = m_pattern.lastBound.isSet() ? m_pattern.lastBound : m_pattern.end;
    if (first.isSet()) {
        line.advance(std::nextafter(all[size_t(first.constraint)].priority, 2 * g_required));
        if (!length)
            addFittingGoals(line, all);
        else if (!addContainerGoals(line, all, *length))
            return false;
    }
    line.advance(0);
    for (State &state : m_states) {
        state.length = line.value();
        if (state.length < state.requiredMinimum - g_leastRoom || state.length > state.requiredMaximum + g_leastRoom)
            return false;
    }
    const bool mustFit = length && reachesEnd() && all[size_t(m_pattern.end.constraint)].isRequired();
    return !mustFit || std::abs(*length + m_pattern.end.in(all)-extent(true)) < g_leastRoom;
}

void ZelLayoutRow::addLengthGoals(ZelLineMinimizer &line, const ZelLayoutBoxes &boxes) const
{
    using Line = ZelLineMinimizer;
    for (size_t i = m_states.size(); i-- > 0;) {
        const State &state = m_states[i];
        const ZelLayoutBox &box = boxes[size_t(m_pattern.members[i].box)];
        line.addGoal(1, 0, Line::NotBelow, ZelLayoutBox::NotNegativePriority);
        if (std::isfinite(state.requiredMinimum))
            line.addGoal(1, -state.requiredMinimum, Line::NotBelow, g_required);
        if (std::isfinite(state.requiredMaximum))
            line.addGoal(1, -state.requiredMaximum, Line::NotAbove, g_required);
        if (box.minimum > 0)
            line.addGoal(1, -box.minimum, Line::NotBelow, ZelLayoutBox::LimitPriority);
        if (std::isfinite(box.maximum))
            line.addGoal(1, -box.maximum, Line::NotAbove, ZelLayoutBox::LimitPriority);
        line.addGoal(1, -box.hint, Line::NotAbove, box.hugging);
        line.addGoal(1, -box.hint, Line::NotBelow, box.compression);
    }
    for (const State &state : m_states) {
        if (std::isfinite(state.boundAfter))
            line.addGoal(1, -state.cap(), Line::NotAbove, m_pattern.gapPriority);
    }
}

/// Adds the goals about the container's end. Answers false if a bound counts for some of the lengths still possible and
/// not for others: the extent is not one straight line then.
bool ZelLayoutRow::addContainerGoals(ZelLineMinimizer &line, const ZelAxisConstraints &all, double length) const
{
    using Line = ZelLineMinimizer;
    double count = 0;
    double rest = m_start; // of the extent to the last start, which is count * the one length + rest
    for (size_t i = 0; i + 1 < m_states.size(); ++i) {
        const State &state = m_states[i];
        const bool isBound = state.cap() <= line.lower();
        if (!isBound && state.cap() < line.upper())
            return false;
        count += isBound ? 0 : 1;
        rest += isBound ? state.boundAfter : state.gapAfter;
    }
    if (m_pattern.lastBound.isSet()) {
        const double bound = length + m_pattern.lastBound.in(all);
        line.addGoal(count + (m_pattern.isLastBoundOnEnd ? 1 : 0), rest - bound, Line::NotBelow,
                     all[size_t(m_pattern.lastBound.constraint)].priority);
    }
    line.addGoal(count + 1, rest - length - m_pattern.end.in(all), Line::Equal,
                 all[size_t(m_pattern.end.constraint)].priority);
    return true;
}

/// Adds the goals for a container that takes the length that the members need.
void ZelLayoutRow::addFittingGoals(ZelLineMinimizer &line, const ZelAxisConstraints &all) const
{
    using Line = ZelLineMinimizer;
    if (m_pattern.lastBound.isSet() && !m_pattern.isLastBoundOnEnd) {
        // The bound keeps the container short, so that a long last member reaches beyond its end.
        const double over = m_pattern.lastBound.in(all)-m_pattern.end.in(all);
        line.addGoal(1, over, Line::NotAbove, all[size_t(m_pattern.end.constraint)].priority);
    }
    line.addGoal(1, 0, Line::NotAbove, ZelLayoutBox::FittingPriority);
}
