// SPDX-License-Identifier: MIT
#include "Layout/private/ZelLayoutSide.h"

#include "Core/Errors/ZelAssertions.h"
#include "Layout/ZelConstraintLayout.h"
#include "Layout/private/ZelTextBaseline.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Answers where a descendant goes inside the child around it when that child has the given size.
QRect placeInChild(const QWidget *widget, const QWidget *child, const QSize &size)
{
    if (widget == child)
        return {QPoint(), size};
    const QRect parent = placeInChild(widget->parentWidget(), child, size);
    return ZelConstraintLayout::geometryWithin(widget, parent.size()).translated(parent.topLeft());
}

} // namespace

void ZelLayoutSide::clear()
{
    m_constraints.clear();
    m_sources.clear();
    m_measured.clear();
    boxes.clear();
}

int ZelLayoutSide::add(ZelLayoutConstraint *source, const ZelAxisConstraint &constraint, const Offset &first,
                       const Offset &second)
{
    const int index = int(m_constraints.size());
    m_sources.push_back(source);
    m_constraints.push_back(constraint);
    m_constraints.back().hasOffsets = first.widget || second.widget;
    if (first.widget)
        m_measured.push_back({first, index, false});
    if (second.widget)
        m_measured.push_back({second, index, true});
    return index;
}

void ZelLayoutSide::finish(int boxCount)
{
    axis.setConstraints(std::exchange(m_constraints, {}), boxCount);
}

// ---- offsets

bool ZelLayoutSide::measure(const ZelLayoutSpans &widths, const ZelLayoutSpans &heights)
{
    bool isDifferent = false;
    for (Measured &measured : m_measured) {
        const size_t box = size_t(measured.offset.box);
        const QSize boxSize(qRound(widths[box].length), qRound(heights[box].length));
        if (boxSize != measured.boxSize)
            isDifferent |= measure(measured, boxSize);
    }
    return isDifferent;
}

ZelLayoutSpans ZelLayoutSide::wanted(const ZelLayoutBoxes &boxes)
{
    ZelLayoutSpans spans(boxes.size());
    std::transform(boxes.begin(), boxes.end(), spans.begin(), [](const ZelLayoutBox &box) {
        return ZelLayoutSpan{0, box.hint};
    });
    return spans;
}

bool ZelLayoutSide::measureAgain()
{
    bool isDifferent = false;
    for (Measured &measured : m_measured) {
        if (measured.boxSize.isValid())
            isDifferent |= measure(measured, measured.boxSize);
    }
    return isDifferent;
}

void ZelLayoutSide::forgetMeasures()
{
    for (Measured &measured : m_measured)
        measured.boxSize = {};
}

bool ZelLayoutSide::measure(Measured &measured, const QSize &boxSize)
{
    constexpr double Tiny = 1e-6;
    measured.boxSize = boxSize;
    const Offset &offset = measured.offset;
    const bool isInside =
        offset.child && offset.widget && (offset.child == offset.widget || offset.child->isAncestorOf(offset.widget));
    if (!isInside)
        return false; // it died or moved away; the next compilation drops the constraint
    const double before = axis.offset(measured.constraint, measured.isSecond);
    const double place = measureOffset(measured.offset, boxSize);
    if (place != before)
        axis.setOffset(measured.constraint, measured.isSecond, place);
    return std::abs(place - before) > Tiny;
}

double ZelLayoutSide::measureOffset(const Offset &offset, const QSize &boxSize)
{
    using Constraint = ZelLayoutConstraint;
    const QWidget *widget = offset.widget;
    const QRectF rect = placeInChild(widget, offset.child, boxSize);
    switch (offset.attribute) {
    case Constraint::Left:
        return rect.left();
    case Constraint::Right:
        return rect.right();
    case Constraint::Leading:
        return offset.isRightToLeft ? rect.right() : rect.left();
    case Constraint::Trailing:
        return offset.isRightToLeft ? rect.left() : rect.right();
    case Constraint::Top:
        return rect.top();
    case Constraint::Bottom:
        return rect.bottom();
    case Constraint::CenterX:
        return rect.center().x();
    case Constraint::CenterY:
        return rect.center().y();
    case Constraint::Baseline:
        return rect.top() + ZelTextBaseline(widget, rect.height());
    case Constraint::Width:
        return widget->sizeHint().width();
    case Constraint::Height:
        return widget->sizeHint().height();
    case Constraint::NotAnAttribute:
        break;
    }
    return 0;
}

// ---- conflicts

void ZelLayoutSide::reportConflicts()
{
    const std::vector<int> leftOut = axis.leftOut(); // a copy: the log's handler may ask for a layout
    for (const int index : leftOut) {
        ZelLayoutConstraint &last = *m_sources[size_t(index)];
        if (last.m_isConflictReported)
            continue;
        const std::vector<int> conflict = axis.conflict(index);
        if (conflict.empty())
            continue;
        last.m_isConflictReported = true;
        QStringList texts;
        for (const int constraint : conflict)
            texts.append(m_sources[size_t(constraint)]->description());
        const ZelPlaceScope scope(last.firstItem());
        ZelLogWarning(QStringLiteral("Conflicting layout constraints, the last one is left out: ") +
                      texts.join(QStringLiteral("; ")));
    }
}
