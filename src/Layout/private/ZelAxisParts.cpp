// SPDX-License-Identifier: MIT
#include "Layout/private/ZelAxisParts.h"

#include <numeric>
#include <utility>

namespace {

using Constraint = ZelAxisConstraint;

bool dependsOnLength(const Constraint &constraint)
{
    return (!constraint.first.isBox() && ZelAxisParts::lengthFactor(constraint.first.edge) != 0) ||
           (!constraint.second.isBox() && ZelAxisParts::lengthFactor(constraint.second.edge) != 0);
}

/// A box that the constraint names, or Container if it names none.
int boxOf(const Constraint &c)
{
    return c.first.isBox() ? c.first.box : c.second.isBox() ? c.second.box : Constraint::Container;
}

/// Sets of boxes that are tied to each other: a disjoint-set forest with path halving.
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

ZelAxisParts::ZelAxisParts(const ZelAxisConstraints &constraints, int boxCount)
{
    Ties ties(boxCount);
    for (const Constraint &c : constraints) {
        if (c.first.isBox() && c.second.isBox())
            ties.tie(c.first.box, c.second.box);
    }
    std::vector<int> partOfRoot(size_t(boxCount), -1);
    std::vector<int> partOfBox(size_t(boxCount), 0);
    for (int i = 0; i < boxCount; ++i) {
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

/// Lists boxes and constraints part by part: counts them, gives each part its range, and fills the ranges. Within a
/// part they keep their order.
void ZelAxisParts::group(const ZelAxisConstraints &constraints, const std::vector<int> &partOfBox)
{
    for (const int part : partOfBox)
        ++m_parts[size_t(part)].boxCount;
    std::vector<int> partOfConstraint(constraints.size(), -1);
    for (size_t i = 0; i < constraints.size(); ++i) {
        const int box = boxOf(constraints[i]);
        if (box == Constraint::Container) {
            m_containerConstraints.push_back(int(i));
            continue;
        }
        partOfConstraint[i] = partOfBox[size_t(box)];
        Part &part = m_parts[size_t(partOfConstraint[i])];
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
