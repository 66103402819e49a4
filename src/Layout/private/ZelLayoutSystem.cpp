// SPDX-License-Identifier: MIT
#include "Layout/private/ZelLayoutSystem.h"

#include <algorithm>
#include <cmath>

namespace {

using Attribute = ZelLayoutConstraint::Attribute;
constexpr double g_roundingSlack = 1e-6;

/// Rounds a place to whole points. Two sums that mean the same place, and differ by noise around a half, must give the
/// same point.
int snap(double place)
{
    return int(std::floor(place + 0.5 + g_roundingSlack));
}

int roundedUp(double length)
{
    return int(std::ceil(length - g_roundingSlack));
}

QRect snappedRect(const ZelLayoutSpan &horizontal, const ZelLayoutSpan &vertical)
{
    const QPoint topLeft(snap(horizontal.start), snap(vertical.start));
    return {topLeft,
            QSize(std::max(0, snap(horizontal.end()) - topLeft.x()), std::max(0, snap(vertical.end()) - topLeft.y()))};
}

/// The edge that an attribute names in a left-to-right layout.
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
    ++m_generation;
    m_isCompiled = false;
    return m_items.take(index);
}

void ZelLayoutSystem::constantDidChange(const ZelLayoutConstraint &constraint)
{
    if (!m_isCompiled || constraint.m_place < 0)
        return;
    const double sign = isMirrored(constraint) ? -1 : 1;
    sideOf(constraint).axis.setConstant(constraint.m_place, sign * constraint.effectiveConstant());
    forgetSolutions();
}

ZelLayoutSide &ZelLayoutSystem::sideOf(const ZelLayoutConstraint &constraint)
{
    return ZelLayoutConstraint::isVertical(constraint.firstAttribute()) ? m_vertical : m_horizontal;
}

bool ZelLayoutSystem::isBeingShown() const
{
    if (m_items.size() == 0 || !m_container->isVisible())
        return false;
    const QWidget *last = m_items[m_items.size() - 1].widget(); // as a rule, it becomes visible as the last one
    return last && !last->isHidden() && !last->isVisible();
}

/// Drops the items without a widget: a child leaves one behind when it dies while its container cannot be told.
void ZelLayoutSystem::dropDeadItems()
{
    for (size_t i = m_items.size(); i-- > 0;) {
        if (!m_items[i].widget())
            takeItem(i);
    }
}

bool ZelLayoutSystem::update()
{
    dropDeadItems();
    bool isDifferent = false;
    if (!m_isCompiled || m_direction != m_container->layoutDirection() || (!m_isComplete && m_haveChildrenChanged)) {
        compile();
        isDifferent = true;
    }
    if (std::exchange(m_haveChildrenChanged, false)) // compile() has set it, too
        isDifferent |= refreshItems();
    return isDifferent;
}

bool ZelLayoutSystem::refreshItems()
{
    bool isSame = m_horizontal.boxes.size() == m_items.size();
    for (const auto &item : m_items)
        isSame &= !item->refresh();
    isSame &= !m_horizontal.measureAgain();
    isSame &= !m_vertical.measureAgain();
    if (isSame)
        return false;
    forgetSolutions();
    for (ZelLayoutSide *side : {&m_horizontal, &m_vertical}) {
        side->forgetMeasures();
        side->boxes.clear();
    }
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
    ++m_revision;
    m_spansWidth = m_verticalWidth = m_spansHeight = -1;
    m_boxesWidth = -1;
    m_sizeHint.reset();
    m_minimumSize.reset();
    m_resistance.reset();
    m_heightsForWidths.clear();
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
    m_horizontal.clear();
    m_vertical.clear();
    for (const ZelLayoutConstraint::Ptr &constraint : qAsConst(m_constraints))
        compileConstraint(*constraint);
    m_formerItems = {};
    m_horizontal.finish(int(m_items.size()));
    m_vertical.finish(int(m_items.size()));
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

/// Leaves out a constraint that names a widget from elsewhere, which may still come here.
void ZelLayoutSystem::compileConstraint(ZelLayoutConstraint &constraint)
{
    ZelAxisConstraint compiled;
    Offset first;
    Offset second;
    constraint.m_place = -1;
    if (!compileOperand(constraint.firstItem(), constraint.firstAttribute(), first, compiled.first) ||
        !compileOperand(constraint.secondItem(), constraint.secondAttribute(), second, compiled.second)) {
        m_isComplete = false;
        return;
    }
    const bool hasDirection = m_direction == Qt::RightToLeft && compiled.second.edge != ZelAxisConstraint::None;
    const auto turn = [&](Attribute attribute, const Offset &offset, ZelAxisConstraint::Operand &operand) {
        if (hasDirection && isDirectional(attribute) && !offset.widget)
            operand.edge = operand.edge == ZelAxisConstraint::Start ? ZelAxisConstraint::End : ZelAxisConstraint::Start;
    };
    turn(constraint.firstAttribute(), first, compiled.first);
    turn(constraint.secondAttribute(), second, compiled.second);
    const int sign = isMirrored(constraint) ? -1 : 1;
    compiled.relation = ZelAxisConstraint::Relation(sign * constraint.relation());
    compiled.constant = sign * constraint.effectiveConstant();
    compiled.multiplier = constraint.multiplier();
    compiled.priority = constraint.priority();
    constraint.m_place = sideOf(constraint).add(&constraint, compiled, first, second);
}

/// In a right-to-left layout, distances between leading and trailing edges run to the left: their sign changes.
bool ZelLayoutSystem::isMirrored(const ZelLayoutConstraint &constraint) const
{
    return m_direction == Qt::RightToLeft && constraint.multiplier() == 1 &&
           isDirectional(constraint.firstAttribute()) && isDirectional(constraint.secondAttribute());
}

bool ZelLayoutSystem::compileOperand(QWidget *widget, Attribute attribute, Offset &offset,
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
    offset = {widget, attribute, child, operand.box, m_direction == Qt::RightToLeft};
    // The size of a descendant is a mere number, so the operand has no edge. Its edges and its baseline are at a
    // distance from the start of the child around it.
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
    const int known = m_items.indexOf(child);
    if (known >= 0)
        return known;
    const int former = m_formerItems.indexOf(child);
    return m_items.append(former >= 0 ? m_formerItems.release(former) : std::make_unique<ZelLayoutItem>(child));
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

/// Answers the size that a container takes when none is given. Its heights are those for its width, unless they are
/// given.
QSize ZelLayoutSystem::fittingSize(const ZelLayoutBoxes &widths, const ZelLayoutBoxes *heights)
{
    if (m_horizontal.hasOffsets())
        m_horizontal.measure(ZelLayoutSide::wanted(widths), ZelLayoutSide::wanted(m_vertical.boxes));
    const int width = roundedUp(m_horizontal.axis.fittingLength(widths));
    m_horizontal.reportConflicts();
    return {width, roundedUp(fittingHeight(heights ? *heights : verticalBoxes(width), width))};
}

double ZelLayoutSystem::fittingHeight(const ZelLayoutBoxes &boxes, int width)
{
    if (m_vertical.hasOffsets())
        m_vertical.measure(horizontal(width), ZelLayoutSide::wanted(boxes));
    const double height = m_vertical.axis.fittingLength(boxes);
    m_vertical.reportConflicts();
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
    const auto known = std::find_if(m_heightsForWidths.begin(), m_heightsForWidths.end(),
                                    [=](auto &entry) { return entry.first == width; });
    if (known != m_heightsForWidths.end())
        return known->second;
    constexpr size_t Many = 4;
    if (m_heightsForWidths.size() == Many)
        m_heightsForWidths.erase(m_heightsForWidths.begin());
    m_heightsForWidths.emplace_back(width, roundedUp(fittingHeight(verticalBoxes(width), width)));
    return m_heightsForWidths.back().second;
}

ZelLayoutPriorities ZelLayoutSystem::resistance()
{
    update();
    if (m_resistance)
        return *m_resistance;
    const auto horizontal = m_horizontal.axis.resistance(m_horizontal.boxes);
    const auto vertical = m_vertical.axis.resistance(verticalBoxes(sizeHint().width()));
    m_resistance =
        ZelLayoutPriorities{horizontal.hugging, vertical.hugging, horizontal.compression, vertical.compression};
    return *m_resistance;
}

const ZelLayoutSpans &ZelLayoutSystem::horizontal(int width)
{
    if (m_spansWidth == width)
        return m_widths;
    ZelLayoutSide &side = m_horizontal;
    const ZelLayoutSpans heights = side.hasOffsets() ? ZelLayoutSide::wanted(m_vertical.boxes) : ZelLayoutSpans();
    if (side.hasOffsets())
        side.measure(ZelLayoutSide::wanted(side.boxes), heights);
    side.axis.solve(side.boxes, width, m_widths);
    // Offsets that are different for the lengths found are taken in once: to go on until none is need not end.
    if (side.hasOffsets() && side.measure(m_widths, heights))
        side.axis.solve(side.boxes, width, m_widths);
    m_spansWidth = width;
    side.reportConflicts();
    return m_widths;
}

const ZelLayoutSpans &ZelLayoutSystem::vertical(const QSize &size)
{
    // The width matters to the vertical axis only where a child has a height for its width.
    if (m_spansHeight == size.height() && (m_verticalWidth == size.width() || !m_hasHeightForWidth))
        return m_heights;
    ZelLayoutSide &side = m_vertical;
    const ZelLayoutSpans &widths = horizontal(size.width());
    const ZelLayoutBoxes &boxes = verticalBoxes(size.width());
    if (side.hasOffsets())
        side.measure(widths, ZelLayoutSide::wanted(boxes));
    side.axis.solve(boxes, size.height(), m_heights);
    if (side.hasOffsets() && side.measure(widths, m_heights))
        side.axis.solve(boxes, size.height(), m_heights);
    m_spansHeight = size.height();
    m_verticalWidth = size.width();
    side.reportConflicts();
    return m_heights;
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
        m_boxesForWidth[i] = m_items[i].verticalForWidth(snappedRect(spans[i], {}).width());
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
    const int index = m_items.indexOf(child);
    if (index < 0)
        return child->geometry();
    return snappedRect(horizontal(size.width())[size_t(index)], vertical(size)[size_t(index)]);
}
