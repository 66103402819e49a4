// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// A layout constraint brought down to one axis and to indexes of boxes.
///
/// It says: first + its offset = multiplier * (second + its offset) + constant, or <=, >=. The layout direction has
/// been resolved: a horizontal start is always left.
struct ZelAxisConstraint
{
    enum Edge : signed char { None, Start, End, Length, Center };
    enum Relation : signed char { NotAbove = -1, Equal = 0, NotBelow = 1 };
    static constexpr int Container = -1;

    struct Operand
    {
        int box = Container;
        Edge edge = None; ///< None for an operand that is missing, or that is its offset alone
        double offset = 0;

        bool isBox() const { return edge != None && box != Container; }
        bool operator==(const Operand &) const = default;
        bool is(int otherBox, Edge otherEdge) const { return box == otherBox && edge == otherEdge; }
    };

    Operand first;
    Operand second;
    Relation relation = Equal;
    bool hasOffsets = false; ///< an offset is measured, and may be another one in the next solution
    float priority = 1000;
    double multiplier = 1;
    double constant = 0;

    bool operator==(const ZelAxisConstraint &) const = default;
    bool isRequired() const { return priority >= 1000; }
    /// The constant of the right side, with the offsets of both sides in it.
    double bias() const { return multiplier * second.offset + constant - first.offset; }
};

using ZelAxisConstraints = std::vector<ZelAxisConstraint>;
