// SPDX-License-Identifier: MIT
#include "Platform/Layout/ZelAxisParts.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <utility>

namespace {

using Constraint = ZelAxisConstraint;

bool dependsOnLength(const Constraint &constraint)
{
    return (!constraint.first.isBox() && ZelAxisParts::lengthFactor(constraint.first.edge) != 0) ||
           (!constraint.second.isBox() && ZelAxisParts::lengthFactor(constraint.second.edge) != 0);
}

/// A box of the constraint, or -1 for one about the container alone.
int boxOf(const Constraint &c)
{
    return c.first.isBox() ? c.first.box : c.second.isBox() ? c.second.box : Constraint::Container;
}

/// Sets of boxes that are tied to each other.
class Ties
{
public:
    explicit Ties(int count)
        : m_parents(size_t(count))
    {
        std::iota(m_parents.begin(), m_parents.end(), 0);
    }
    int rootOf(int box)
    {
        while (m_parents[size_t(box)] != box)
            box = m_parents[size_t(box)] = m_parents[size_t(m_parents[size_t(box)])];
        return box;
    }
    void tie(int a, int b) { m_parents[size_t(rootOf(b))] = rootOf(a); }

private:
    std::vector<int> m_parents;
};

} // namespace

double ZelAxisParts::lengthFactor(Constraint::Edge edge)
{
    switch (edge) {
    case Constraint::End:
    case Constraint::Length:
        return 1;
    case Constraint::Center:
        return 0.5;
    default:
        return 0;
    }
}

bool ZelAxisParts::isAlignment(const Constraint &c)
{
    return c.isRequired() && c.relation == Constraint::Equal && c.multiplier == 1 && !c.hasOffsets &&
           c.first.edge == c.second.edge && (c.first.edge == Constraint::Start || c.first.edge == Constraint::End);
}

ZelAxisParts::ZelAxisParts(ZelAxisConstraints &constraints, int boxCount)
{
    pinAligned(constraints, boxCount);
    const std::vector<Role> roles = findFollowers(constraints, boxCount);
    Ties ties(boxCount);
    for (const Constraint &c : constraints) {
        if (c.first.isBox() && c.second.isBox() && roles[size_t(c.first.box)] == Tied &&
            roles[size_t(c.second.box)] == Tied)
            ties.tie(c.first.box, c.second.box);
    }
    std::vector<int> partOfRoot(size_t(boxCount), -1);
    std::vector<int> partOfBox(size_t(boxCount), -1);
    for (int i = 0; i < boxCount; ++i) {
        if (roles[size_t(i)] != Tied)
            continue;
        int &part = partOfRoot[size_t(ties.rootOf(i))];
        if (part < 0) {
            part = int(m_parts.size());
            m_parts.emplace_back();
        }
        partOfBox[size_t(i)] = part;
    }
    group(constraints, partOfBox);
}

ZelAxisParts ZelAxisParts::whole(const ZelAxisConstraints &constraints, int boxCount)
{
    ZelAxisParts result;
    result.m_parts.emplace_back();
    result.group(constraints, std::vector<int>(size_t(boxCount), 0));
    return result;
}

/// Constraints that tie a box's end to one whose distance from the container is required are made to say so directly.
void ZelAxisParts::pinAligned(ZelAxisConstraints &constraints, int boxCount)
{
    std::vector<int> alignments; // between boxes
    std::array<std::vector<std::optional<double>>, 2> pins;
    pins.fill(std::vector<std::optional<double>>(size_t(boxCount)));
    const auto pin = [&](const Constraint::Operand &operand) -> std::optional<double> & {
        return pins[operand.edge == Constraint::End][size_t(operand.box)];
    };
    for (size_t i = 0; i < constraints.size(); ++i) {
        const Constraint &c = constraints[i];
        if (!isAlignment(c))
            continue;
        if (c.first.isBox() && c.second.isBox())
            alignments.push_back(int(i));
        else if (c.first.isBox())
            pin(c.first) = c.bias();
        else if (c.second.isBox())
            pin(c.second) = -c.bias();
    }
    for (bool goesOn = true; goesOn;) {
        const auto isPinned = [&](int index) {
            Constraint &c = constraints[size_t(index)];
            if (!pin(c.first) && !pin(c.second))
                return false;
            if (!pin(c.second)) {
                std::swap(c.first, c.second);
                c.constant = -c.constant;
            }
            c.constant += *pin(c.second);
            c.second.box = Constraint::Container;
            if (!pin(c.first))
                pin(c.first) = c.constant;
            return true;
        };
        const auto rest = std::remove_if(alignments.begin(), alignments.end(), isPinned);
        goesOn = rest != alignments.end();
        m_hasAlignments |= goesOn;
        alignments.erase(rest, alignments.end());
    }
}

/// Takes boxes out one after the other that have a single constraint, as long as there are such.
std::vector<ZelAxisParts::Role> ZelAxisParts::findFollowers(const ZelAxisConstraints &constraints, int boxCount)
{
    // The sum of the indexes of the constraints that are left of a box is the index of the last one.
    std::vector<int> counts(size_t(boxCount), 0);
    std::vector<int> sums(size_t(boxCount), 0);
    const auto add = [&](const Constraint::Operand &operand, int count, int index) {
        if (!operand.isBox())
            return;
        counts[size_t(operand.box)] += count;
        sums[size_t(operand.box)] += count * index;
    };
    for (size_t i = 0; i < constraints.size(); ++i) {
        add(constraints[i].first, 1, int(i));
        add(constraints[i].second, 1, int(i));
    }
    std::vector<Role> roles(size_t(boxCount), Tied);
    std::vector<int> candidates(size_t(boxCount), 0);
    std::iota(candidates.begin(), candidates.end(), 0);
    while (!candidates.empty()) {
        const int box = candidates.back();
        candidates.pop_back();
        if (counts[size_t(box)] != 1 || roles[size_t(box)] != Tied)
            continue;
        const int index = sums[size_t(box)];
        const Constraint &c = constraints[size_t(index)];
        const bool isSecond = c.second.isBox() && c.second.box == box;
        const Constraint::Operand &own = isSecond ? c.second : c.first;
        const Constraint::Operand &other = isSecond ? c.first : c.second;
        if (c.relation != Constraint::Equal || c.multiplier != 1 || !other.isBox() || own.edge == Constraint::Length)
            continue;
        roles[size_t(box)] = Follows;
        m_followers.push_back({box, index});
        add(c.first, -1, index);
        add(c.second, -1, index);
        candidates.push_back(other.box);
    }
    std::reverse(m_followers.begin(), m_followers.end());
    return roles;
}

/// Lists boxes and constraints part by part.
void ZelAxisParts::group(const ZelAxisConstraints &constraints, const std::vector<int> &partOfBox)
{
    const auto partOf = [&](const Constraint &c) {
        const auto ofBox = [&](const Constraint::Operand &o) { return o.isBox() ? partOfBox[size_t(o.box)] : 0; };
        return std::min(ofBox(c.first), ofBox(c.second)) < 0 ? -1 : partOfBox[size_t(boxOf(c))];
    };
    for (const int part : partOfBox) {
        if (part >= 0)
            ++m_parts[size_t(part)].boxCount;
    }
    std::vector<int> partOfConstraint(constraints.size(), -1);
    for (size_t i = 0; i < constraints.size(); ++i) {
        if (boxOf(constraints[i]) == Constraint::Container) {
            m_containerConstraints.push_back(int(i));
            continue;
        }
        const int index = partOfConstraint[i] = partOf(constraints[i]);
        if (index < 0)
            continue; // a follower's
        Part &part = m_parts[size_t(index)];
        ++part.constraintCount;
        part.reachesEnd |= dependsOnLength(constraints[i]);
    }
    int boxes = 0;
    int count = 0;
    for (Part &part : m_parts) {
        part.firstBox = boxes;
        part.firstConstraint = count;
        boxes += std::exchange(part.boxCount, 0);
        count += std::exchange(part.constraintCount, 0);
    }
    m_boxes.resize(size_t(boxes));
    m_constraints.resize(size_t(count));
    for (size_t i = 0; i < partOfBox.size(); ++i) {
        if (partOfBox[i] < 0)
            continue;
        Part &part = m_parts[size_t(partOfBox[i])];
        m_boxes[size_t(part.firstBox + part.boxCount++)] = int(i);
    }
    for (size_t i = 0; i < constraints.size(); ++i) {
        if (partOfConstraint[i] < 0)
            continue;
        Part &part = m_parts[size_t(partOfConstraint[i])];
        m_constraints[size_t(part.firstConstraint + part.constraintCount++)] = int(i);
    }
}

std::span<const int> ZelAxisParts::boxesOf(const Part &part) const
{
    return std::span(m_boxes).subspan(size_t(part.firstBox), size_t(part.boxCount));
}

std::span<const int> ZelAxisParts::constraintsOf(const Part &part) const
{
    return std::span(m_constraints).subspan(size_t(part.firstConstraint), size_t(part.constraintCount));
}
