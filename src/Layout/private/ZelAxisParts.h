// SPDX-License-Identifier: MIT
#pragma once

#include "Layout/private/ZelAxisConstraint.h"

#include <span>

/// The boxes of an axis, divided into parts that can be solved apart from each other when the container's length is
/// given.
class ZelAxisParts
{
public:
    struct Part
    {
        int firstBox = 0; // index in m_boxes
        int boxCount = 0;
        int firstConstraint = 0; // index in m_constraints
        int constraintCount = 0;
        bool reachesEnd = false; ///< whether it depends on the container's length
    };

    ZelAxisParts() = default;
    ZelAxisParts(const ZelAxisConstraints &constraints, int boxCount);
    /// Everything in one part.
    static ZelAxisParts whole(const ZelAxisConstraints &constraints, int boxCount);

    const std::vector<Part> &parts() const { return m_parts; }
    std::span<const int> boxesOf(const Part &part) const;
    std::span<const int> constraintsOf(const Part &part) const;
    /// The constraints that name no box.
    const std::vector<int> &containerConstraints() const { return m_containerConstraints; }
    /// How far an edge of the container moves when its length grows by 1.
    static double lengthFactor(ZelAxisConstraint::Edge edge);

private:
    void group(const ZelAxisConstraints &constraints, const std::vector<int> &partOfBox);

    std::vector<Part> m_parts;
    std::vector<int> m_boxes;
    std::vector<int> m_constraints;
    std::vector<int> m_containerConstraints;
};
