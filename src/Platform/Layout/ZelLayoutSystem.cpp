// SPDX-License-Identifier: MIT
#include "Platform/Layout/ZelLayoutSystem.h"

#include "Platform/Layout/ZelTextBaseline.h"
#include "Platform/Runtime/ZelAssertions.h"

#include <algorithm>
#include <cmath>

namespace {

using Attribute = ZelLayoutConstraint::Attribute;
constexpr double Tiny = 1e-6;

/// A place in whole points. Two sums that mean the same place must not be rounded apart.
int snap(double place)
{
    return int(std::floor(place + 0.5 + Tiny));
}

int roundedUp(double length)
{
    return int(std::ceil(length - Tiny));
}

QRect snappedRect(const ZelLayoutSpan &horizontal, const ZelLayoutSpan &vertical)
{
    const QPoint topLeft(snap(horizontal.start), snap(vertical.start));
    return {topLeft,
            QSize(std::max(0, snap(horizontal.end()) - topLeft.x()), std::max(0, snap(vertical.end()) - topLeft.y()))};
}

/// The edge of an attribute in a text that runs from left to right.
ZelAxisConstraint::Edge edgeOf(Attribute attribute)
{
    using Axis = ZelAxisConstraint;
    static constexpr ZelAxisConstraint::Edge edges[] = {Axis::None,   Axis::Start,  Axis::End,    Axis::Start,
                                                        Axis::End,    Axis::Start,  Axis::End,    Axis::Length,
                                                        Axis::Length, Axis::Center, Axis::Center, Axis::Start};
    return edges[size_t(attribute)];
}

bool isDirectional(Attribute attribute)
{
    return attribute == ZelLayoutConstraint::Leading || attribute == ZelLayoutConstraint::Trailing;
}

/// Spans of the wanted lengths, before there is a solution.
ZelLayoutSpans wantedSpans(const ZelLayoutBoxes &boxes)
{
    ZelLayoutSpans spans(boxes.size());
    std::transform(boxes.begin(), boxes.end(), spans.begin(), [](const ZelLayoutBox &box) {
        return ZelLayoutSpan{0, box.hint};
    });
    return spans;
}

} // namespace

// ---- what is in the system

void ZelLayoutSystem::add(const ZelLayoutConstraint::Ptr &constraint)
{
    m_constraints.append(constraint);
    constraint->m_place = -1;
    m_isCompiled = false;
}

void ZelLayoutSystem::sweep(const ZelConstraintLayout *layout)
{
    m_constraints.removeIf([=](const ZelLayoutConstraint::Ptr &constraint) { return constraint->m_layout != layout; });
    m_isCompiled = false;
}

std::unique_ptr<ZelLayoutItem> ZelLayoutSystem::takeItem(size_t index)
{
    std::unique_ptr<ZelLayoutItem> item = std::move(m_items[index]);
    m_items.erase(m_items.begin() + ptrdiff_t(index));
    ++m_generation;
    m_isCompiled = false;
    return item;
}

void ZelLayoutSystem::constantDidChange(const ZelLayoutConstraint &constraint)
{
    if (!m_isCompiled || constraint.m_place < 0)
        return;
    const double sign = isMirrored(constraint) ? -1 : 1;
    m_isCompiled = sideOf(constraint).axis.setConstant(constraint.m_place, sign * constraint.constant());
    forgetSolutions();
}

ZelLayoutSystem::Side &ZelLayoutSystem::sideOf(const ZelLayoutConstraint &constraint)
{
    return ZelLayoutConstraint::isVertical(constraint.firstAttribute()) ? m_vertical : m_horizontal;
}

bool ZelLayoutSystem::update()
{
    bool isDifferent = false;
    if (!m_isCompiled || m_direction != m_container->layoutDirection() || (!m_isComplete && m_haveChildrenChanged)) {
        compile();
        isDifferent = true;
    }
    if (std::exchange(m_haveChildrenChanged, false))
        isDifferent |= refreshItems();
    return isDifferent;
}

bool ZelLayoutSystem::refreshItems()
{
    bool isSame = m_horizontal.boxes.size() == m_items.size();
    for (const auto &item : m_items)
        isSame &= !item->refresh();
    if (isSame && !measureAgain())
        return false;
    forgetSolutions();
    for (Side *side : {&m_horizontal, &m_vertical}) {
        for (Measured &measured : side->measured)
            measured.boxSize = {};
    }
    m_horizontal.boxes.clear();
    m_vertical.boxes.clear();
    m_hasHeightForWidth = false;
    for (const auto &item : m_items) {
        m_horizontal.boxes.push_back(item->horizontal());
        m_vertical.boxes.push_back(item->vertical());
        m_hasHeightForWidth |= item->isHeightForWidth();
    }
    return true;
}

void ZelLayoutSystem::forgetSolutions()
{
    m_horizontal.spansLength = m_vertical.spansLength = -1;
    m_boxesWidth = -1;
    m_sizeHint.reset();
    m_minimumSize.reset();
    m_resistance.reset();
    m_heights.clear();
}

// ---- compiling

void ZelLayoutSystem::compile()
{
    dropDead();
    ++m_generation;
    m_isCompiled = true;
    m_isComplete = true;
    m_haveChildrenChanged = true;
    m_direction = m_container->layoutDirection();
    m_formerItems = std::exchange(m_items, {});
    m_formerIndexes.clear();
    for (size_t i = 0; i < m_formerItems.size(); ++i)
        m_formerIndexes.insert(m_formerItems[i]->widget(), int(i));
    m_indexes.clear();
    for (Side *side : {&m_horizontal, &m_vertical}) {
        side->measured.clear();
        side->sources.clear();
        side->boxes.clear();
    }
    ZelAxisConstraints horizontal;
    ZelAxisConstraints vertical;
    for (const ZelLayoutConstraint::Ptr &constraint : qAsConst(m_constraints)) {
        Side &side = sideOf(*constraint);
        ZelAxisConstraints &list = &side == &m_vertical ? vertical : horizontal;
        ZelAxisConstraint compiled;
        constraint->m_place = -1;
        if (!compileConstraint(*constraint, side, compiled))
            continue;
        constraint->m_place = int(list.size());
        list.push_back(compiled);
        side.sources.push_back(constraint.data());
    }
    m_formerItems.clear();
    m_formerIndexes.clear();
    m_horizontal.axis.setConstraints(std::move(horizontal), int(m_items.size()));
    m_vertical.axis.setConstraints(std::move(vertical), int(m_items.size()));
    forgetSolutions();
}

void ZelLayoutSystem::dropDead()
{
    m_constraints.removeIf([](const ZelLayoutConstraint::Ptr &constraint) {
        const bool isAlive =
            constraint->firstItem() &&
            (constraint->secondItem() || constraint->secondAttribute() == ZelLayoutConstraint::NotAnAttribute);
        if (!isAlive)
            constraint->m_layout = nullptr;
        return !isAlive;
    });
}

/// False if the constraint names a widget from elsewhere, which may yet come here.
bool ZelLayoutSystem::compileConstraint(ZelLayoutConstraint &constraint, Side &side, ZelAxisConstraint &compiled)
{
    Measured first{int(side.sources.size()), false};
    Measured second{int(side.sources.size()), true};
    if (!compileOperand(constraint.firstItem(), constraint.firstAttribute(), first, compiled.first) ||
        !compileOperand(constraint.secondItem(), constraint.secondAttribute(), second, compiled.second)) {
        m_isComplete = false;
        return false;
    }
    for (const Measured &measured : {first, second}) {
        if (!measured.widget)
            continue;
        side.measured.push_back(measured);
        compiled.hasOffsets = true;
    }
    const bool hasDirection = m_direction == Qt::RightToLeft && compiled.second.edge != ZelAxisConstraint::None;
    const auto turn = [&](Attribute attribute, const Measured &measured, ZelAxisConstraint::Operand &operand) {
        if (hasDirection && isDirectional(attribute) && !measured.widget)
            operand.edge = operand.edge == ZelAxisConstraint::Start ? ZelAxisConstraint::End : ZelAxisConstraint::Start;
    };
    turn(constraint.firstAttribute(), first, compiled.first);
    turn(constraint.secondAttribute(), second, compiled.second);
    const int sign = isMirrored(constraint) ? -1 : 1;
    compiled.relation = ZelAxisConstraint::Relation(sign * constraint.relation());
    compiled.constant = sign * constraint.constant();
    compiled.multiplier = constraint.multiplier();
    compiled.priority = constraint.priority();
    return true;
}

/// In a text from right to left, distances between leading and trailing edges run to the left.
bool ZelLayoutSystem::isMirrored(const ZelLayoutConstraint &constraint) const
{
    return m_direction == Qt::RightToLeft && constraint.multiplier() == 1 &&
           isDirectional(constraint.firstAttribute()) && isDirectional(constraint.secondAttribute());
}

bool ZelLayoutSystem::compileOperand(QWidget *widget, Attribute attribute, Measured &measured,
                                     ZelAxisConstraint::Operand &operand)
{
    operand.edge = edgeOf(attribute);
    if (!widget)
        return true;
    if (widget == m_container) {
        if (attribute == ZelLayoutConstraint::Baseline)
            operand.edge = ZelAxisConstraint::End;
        return true;
    }
    QWidget *child = directChild(widget);
    if (!child)
        return false;
    operand.box = itemFor(child);
    if (child == widget && attribute != ZelLayoutConstraint::Baseline)
        return true;
    measured.widget = widget;
    measured.attribute = attribute;
    measured.box = operand.box;
    // The size of a descendant is a number; its edges are at a distance from the start of the child around it.
    operand.edge = operand.edge == ZelAxisConstraint::Length ? ZelAxisConstraint::None : ZelAxisConstraint::Start;
    return true;
}

QWidget *ZelLayoutSystem::directChild(QWidget *descendant) const
{
    while (descendant && descendant->parentWidget() != m_container)
        descendant = descendant->parentWidget();
    return descendant;
}

int ZelLayoutSystem::itemFor(QWidget *child)
{
    const auto known = m_indexes.constFind(child);
    if (known != m_indexes.cend())
        return *known;
    const int former = m_formerIndexes.value(child, -1);
    m_items.push_back(former >= 0 ? std::move(m_formerItems[size_t(former)]) : std::make_unique<ZelLayoutItem>(child));
    return *m_indexes.insert(child, int(m_items.size()) - 1);
}

// ---- solutions

QSize ZelLayoutSystem::sizeHint()
{
    update();
    if (!m_sizeHint)
        m_sizeHint = fittingSize(m_horizontal.boxes, nullptr);
    return *m_sizeHint;
}

QSize ZelLayoutSystem::minimumSize()
{
    update();
    if (!m_minimumSize) {
        ZelLayoutBoxes widths;
        ZelLayoutBoxes heights;
        for (const auto &item : m_items) {
            widths.push_back(item->smallest(Qt::Horizontal));
            heights.push_back(item->smallest(Qt::Vertical));
        }
        m_minimumSize = fittingSize(widths, &heights);
    }
    return *m_minimumSize;
}

/// The size of a container without a size of its own; its heights are those for its width, unless they are given.
QSize ZelLayoutSystem::fittingSize(const ZelLayoutBoxes &widths, const ZelLayoutBoxes *heights)
{
    measureWanted(m_horizontal, widths, m_vertical.boxes);
    const int width = roundedUp(m_horizontal.axis.fittingLength(widths));
    reportConflicts(m_horizontal);
    return {width, roundedUp(fittingHeight(heights ? *heights : verticalBoxes(width), width))};
}

double ZelLayoutSystem::fittingHeight(const ZelLayoutBoxes &boxes, int width)
{
    if (!m_vertical.measured.empty())
        measure(m_vertical, horizontal(width), wantedSpans(boxes));
    const double height = m_vertical.axis.fittingLength(boxes);
    reportConflicts(m_vertical);
    return height;
}

bool ZelLayoutSystem::isHeightForWidth()
{
    update();
    return m_hasHeightForWidth;
}

int ZelLayoutSystem::heightForWidth(int width)
{
    update();
    const auto known =
        std::find_if(m_heights.begin(), m_heights.end(), [=](auto &entry) { return entry.first == width; });
    if (known != m_heights.end())
        return known->second;
    constexpr size_t Many = 4;
    if (m_heights.size() == Many)
        m_heights.erase(m_heights.begin());
    m_heights.emplace_back(width, roundedUp(fittingHeight(verticalBoxes(width), width)));
    return m_heights.back().second;
}

ZelLayoutPriorities ZelLayoutSystem::resistance()
{
    update();
    if (m_resistance)
        return *m_resistance;
    const QSize size = sizeHint();
    const ZelLayoutBoxes &heights = verticalBoxes(size.width());
    const double width = m_horizontal.axis.fittingLength(m_horizontal.boxes);
    const double height = m_vertical.axis.fittingLength(heights);
    m_resistance = ZelLayoutPriorities{
        m_horizontal.axis.resistance(m_horizontal.boxes, width, 1), m_vertical.axis.resistance(heights, height, 1),
        m_horizontal.axis.resistance(m_horizontal.boxes, width, -1), m_vertical.axis.resistance(heights, height, -1)};
    return *m_resistance;
}

const ZelLayoutSpans &ZelLayoutSystem::horizontal(int width)
{
    Side &side = m_horizontal;
    if (side.spansLength == width)
        return side.spans;
    measureWanted(side, side.boxes, m_vertical.boxes);
    side.axis.solve(side.boxes, width, side.spans);
    if (!side.measured.empty() && measure(side, side.spans, wantedSpans(m_vertical.boxes)))
        side.axis.solve(side.boxes, width, side.spans);
    side.spansLength = width;
    reportConflicts(side);
    return side.spans;
}

const ZelLayoutSpans &ZelLayoutSystem::vertical(const QSize &size)
{
    Side &side = m_vertical;
    // Only heights for widths carry a change of the width over to the vertical axis.
    if (side.spansLength == size.height() && (m_spansWidth == size.width() || !m_hasHeightForWidth))
        return side.spans;
    const ZelLayoutSpans &widths = horizontal(size.width());
    const ZelLayoutBoxes &boxes = verticalBoxes(size.width());
    if (!side.measured.empty())
        measure(side, widths, wantedSpans(boxes));
    side.axis.solve(boxes, size.height(), side.spans);
    if (measure(side, widths, side.spans))
        side.axis.solve(boxes, size.height(), side.spans);
    side.spansLength = size.height();
    m_spansWidth = size.width();
    reportConflicts(side);
    return side.spans;
}

const ZelLayoutBoxes &ZelLayoutSystem::verticalBoxes(int width)
{
    if (!m_hasHeightForWidth)
        return m_vertical.boxes;
    if (m_boxesWidth == width)
        return m_boxesForWidth;
    const ZelLayoutSpans &spans = horizontal(width);
    m_boxesForWidth.resize(m_items.size());
    for (size_t i = 0; i < m_items.size(); ++i)
        m_boxesForWidth[i] = m_items[i]->verticalForWidth(snappedRect(spans[i], {}).width());
    m_boxesWidth = width;
    return m_boxesForWidth;
}

std::vector<QRect> ZelLayoutSystem::geometries(const QSize &size)
{
    update();
    const ZelLayoutSpans &widths = horizontal(size.width());
    const ZelLayoutSpans &heights = vertical(size);
    std::vector<QRect> rects(m_items.size());
    for (size_t i = 0; i < rects.size(); ++i)
        rects[i] = snappedRect(widths[i], heights[i]);
    return rects;
}

QRect ZelLayoutSystem::geometryOf(const QWidget *child, const QSize &size)
{
    update();
    const auto index = m_indexes.constFind(child);
    if (index == m_indexes.cend())
        return child->geometry();
    return snappedRect(horizontal(size.width())[size_t(*index)], vertical(size)[size_t(*index)]);
}

// ---- baselines and descendants

/// Measures the offsets that constraints of the side contain, for boxes of these lengths. True if one is different.
bool ZelLayoutSystem::measure(Side &side, const ZelLayoutSpans &widths, const ZelLayoutSpans &heights)
{
    bool isDifferent = false;
    for (Measured &measured : side.measured) {
        const size_t box = size_t(measured.box);
        const QSize boxSize(snap(widths[box].length), snap(heights[box].length));
        if (boxSize != measured.boxSize)
            isDifferent |= measure(side, measured, boxSize);
    }
    return isDifferent;
}

/// Measures for boxes of the lengths that they want.
void ZelLayoutSystem::measureWanted(Side &side, const ZelLayoutBoxes &widths, const ZelLayoutBoxes &heights)
{
    if (!side.measured.empty())
        measure(side, wantedSpans(widths), wantedSpans(heights));
}

bool ZelLayoutSystem::measure(Side &side, Measured &measured, const QSize &boxSize)
{
    measured.boxSize = boxSize;
    if (!measured.widget)
        return false;
    ZelAxisConstraint &constraint = side.axis.constraint(measured.constraint);
    double &place = measured.isSecond ? constraint.second.offset : constraint.first.offset;
    const double before = std::exchange(place, measureOffset(measured, boxSize));
    return std::abs(place - before) > Tiny;
}

/// The insides of children may have moved although the children want the same.
bool ZelLayoutSystem::measureAgain()
{
    bool isDifferent = false;
    for (Side *side : {&m_horizontal, &m_vertical}) {
        for (Measured &measured : side->measured) {
            if (measured.boxSize.isValid())
                isDifferent |= measure(*side, measured, measured.boxSize);
        }
    }
    return isDifferent;
}

double ZelLayoutSystem::measureOffset(const Measured &measured, const QSize &boxSize) const
{
    using Constraint = ZelLayoutConstraint;
    std::vector<QWidget *> path; // from the widget up to below the child
    for (QWidget *widget = measured.widget; widget->parentWidget() != m_container; widget = widget->parentWidget())
        path.push_back(widget);
    QRect rect(QPoint(), boxSize);
    for (size_t i = path.size(); i-- > 0;)
        rect = ZelConstraintLayout::geometryWithin(path[i], rect.size()).translated(rect.topLeft());
    const bool isRightToLeft = m_direction == Qt::RightToLeft;
    switch (measured.attribute) {
    case Constraint::Left:
        return rect.left();
    case Constraint::Right:
        return rect.left() + rect.width();
    case Constraint::Leading:
        return isRightToLeft ? rect.left() + rect.width() : rect.left();
    case Constraint::Trailing:
        return isRightToLeft ? rect.left() : rect.left() + rect.width();
    case Constraint::Top:
        return rect.top();
    case Constraint::Bottom:
        return rect.top() + rect.height();
    case Constraint::CenterX:
        return rect.left() + rect.width() / 2.0;
    case Constraint::CenterY:
        return rect.top() + rect.height() / 2.0;
    case Constraint::Baseline:
        return rect.top() + ZelTextBaseline(measured.widget, rect.height());
    case Constraint::Width:
        return measured.widget->sizeHint().width();
    case Constraint::Height:
        return measured.widget->sizeHint().height();
    case Constraint::NotAnAttribute:
        break;
    }
    return 0;
}

void ZelLayoutSystem::reportConflicts(Side &side)
{
    const std::vector<int> leftOut = side.axis.leftOut();
    for (const int index : leftOut) {
        ZelLayoutConstraint &last = *side.sources[size_t(index)];
        if (last.m_isConflictReported)
            continue;
        const std::vector<int> conflict = side.axis.conflict(index);
        if (conflict.empty())
            continue;
        last.m_isConflictReported = true;
        QStringList texts;
        for (const int constraint : conflict)
            texts.append(side.sources[size_t(constraint)]->description());
        qCWarning(zelLog).noquote() << "WARNING: Conflicting layout constraints, the last one is left out:"
                                    << texts.join(QStringLiteral("; "));
    }
}
