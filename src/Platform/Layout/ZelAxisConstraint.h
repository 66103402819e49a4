// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// A layout constraint brought down to one axis and to indexes of boxes.
///
/// first (+ its offset) = multiplier * (second + its offset) + constant, or <=, >=. Starts and ends have no direction
/// of writing left in them.
struct ZelAxisConstraint
{
    enum Edge : signed char { None, Start, End, Length, Center };
    enum Relation : signed char { NotAbove = -1, Equal = 0, NotBelow = 1 };
    static constexpr int Container = -1;

    struct Operand
    {
        int box = Container;
        Edge edge = None; ///< None: there is no such operand
        double offset = 0;

        bool isBox() const { return edge != None && box != Container; }
        bool operator==(const Operand &) const = default;
        bool is(int otherBox, Edge otherEdge) const { return box == otherBox && edge == otherEdge; }
    };

    Operand first;
    Operand second;
    Relation relation = Equal;
    bool hasOffsets = false; ///< the offsets are measured anew for each solution
    float priority = 1000;
    double multiplier = 1;
    double constant = 0;

    bool operator==(const ZelAxisConstraint &) const = default;
    bool isRequired() const { return priority >= 1000; }
    /// The constant on the right side with the offsets in it.
    double bias() const { return multiplier * second.offset + constant - first.offset; }
};

using ZelAxisConstraints = std::vector<ZelAxisConstraint>;
