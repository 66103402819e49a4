// SPDX-License-Identifier: MIT
#pragma once

#include "Layout/ZelLayoutConstraint.h"
#include "Layout/private/ZelLayoutAxis.h"

/// One axis of a layout with what ties it to widgets: constraints, baselines and places of descendants, conflicts.
///
/// A constraint may name a place inside a child: a baseline, or a deeper descendant. It then has an offset, which is
/// measured for the size that the child is expected to get, and again if the child gets another one.
class ZelLayoutSide
{
public:
    /// A place inside a child.
    struct Offset
    {
        QPointer<QWidget> widget; ///< null where there is nothing to measure
        ZelLayoutConstraint::Attribute attribute = ZelLayoutConstraint::NotAnAttribute;
        QPointer<QWidget> child; ///< the child around the widget, or the widget itself
        int box = 0;             ///< the child's box
        bool isRightToLeft = false;
    };

    ZelLayoutAxis axis;
    ZelLayoutBoxes boxes;

    /// Forgets constraints and boxes.
    void clear();
    /// Adds the constraint and answers its index on the axis.
    int add(ZelLayoutConstraint *source, const ZelAxisConstraint &constraint, const Offset &first,
            const Offset &second);
    /// Hands the constraints to the axis.
    void finish(int boxCount);

    bool hasOffsets() const { return !m_measured.empty(); }
    /// Measures the offsets for boxes of these lengths. Answers whether one is different from before.
    bool measure(const ZelLayoutSpans &widths, const ZelLayoutSpans &heights);
    /// Spans of the lengths that the boxes want, to measure with before there is a solution.
    static ZelLayoutSpans wanted(const ZelLayoutBoxes &boxes);
    /// Measures for the same sizes again, since the insides of children may have moved although the children want the
    /// same as before. Answers whether an offset is different.
    bool measureAgain();
    void forgetMeasures();

    /// Logs the conflicts of the last solution that have not been logged yet.
    void reportConflicts();

private:
    struct Measured
    {
        Offset offset;
        int constraint = 0;
        bool isSecond = false;
        QSize boxSize; // for which it was measured
    };

    bool measure(Measured &measured, const QSize &boxSize);
    static double measureOffset(const Offset &offset, const QSize &boxSize);

    ZelAxisConstraints m_constraints; // collected until finish()
    std::vector<ZelLayoutConstraint *> m_sources;
    std::vector<Measured> m_measured;
};
