// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelAxisConstraint.h"

#include <span>

/// The boxes of an axis in parts that can be solved apart when the container's length is given.
///
/// Two kinds of constraints are taken out of the way. A box that is aligned with a pinned one is pinned itself. A box
/// that nothing but one equality ties to another follows that one: it can always be put where it belongs afterwards.
class ZelAxisParts
{
public:
    struct Part
    {
        int firstBox = 0; // in m_boxes
        int boxCount = 0;
        int firstConstraint = 0; // in m_constraints
        int constraintCount = 0;
        bool reachesEnd = false; ///< depends on the container's length
    };
    struct Follower
    {
        int box = 0;
        int constraint = 0; ///< the only one it has
    };

    ZelAxisParts() = default;
    /// Rewrites alignments with pinned boxes into pins.
    ZelAxisParts(ZelAxisConstraints &constraints, int boxCount);
    /// Everything in one part, and nothing rewritten.
    static ZelAxisParts whole(const ZelAxisConstraints &constraints, int boxCount);

    const std::vector<Part> &parts() const { return m_parts; }
    std::span<const int> boxesOf(const Part &part) const;
    std::span<const int> constraintsOf(const Part &part) const;
    /// In an order in which the boxes that they follow are known.
    const std::vector<Follower> &followers() const { return m_followers; }
    const std::vector<int> &containerConstraints() const { return m_containerConstraints; }
    /// Whether constants of pins went into other constraints.
    bool hasAlignments() const { return m_hasAlignments; }

    /// Whether the constraint is an equality between the same ends of two items at a required distance.
    static bool isAlignment(const ZelAxisConstraint &constraint);
    /// How an edge of the container moves with its length.
    static double lengthFactor(ZelAxisConstraint::Edge edge);

private:
    enum Role : signed char { Tied, Follows };

    void pinAligned(ZelAxisConstraints &constraints, int boxCount);
    std::vector<Role> findFollowers(const ZelAxisConstraints &constraints, int boxCount);
    void group(const ZelAxisConstraints &constraints, const std::vector<int> &partOfBox);

    std::vector<Part> m_parts;
    std::vector<int> m_boxes;
    std::vector<int> m_constraints;
    std::vector<Follower> m_followers;
    std::vector<int> m_containerConstraints;
    bool m_hasAlignments = false;
};
