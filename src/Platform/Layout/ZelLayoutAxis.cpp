// SPDX-License-Identifier: MIT
#include "Platform/Layout/ZelLayoutAxis.h"

#include "Platform/Layout/ZelLineMinimizer.h"

#include <algorithm>
#include <cmath>
#include <numeric>

// Wishes of the boxes come before constraints of the same priority, and those of later boxes before those of earlier
// ones. So a box keeps its hint where it may as well, and what is left over goes to the first box that can take it.

namespace {

using Constraint = ZelAxisConstraint;
constexpr double Tiny = 1e-6;
constexpr float PlacePriority = 0.001F; // keeps boxes that nothing places at the container's start

/// How an edge of the container moves with its length.
double lengthFactor(Constraint::Edge edge)
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

bool dependsOnLength(const Constraint &constraint)
{
    return (!constraint.first.isBox() && lengthFactor(constraint.first.edge) != 0) ||
           (!constraint.second.isBox() && lengthFactor(constraint.second.edge) != 0);
}

double valueOf(const Constraint::Operand &operand, double length, const ZelLayoutSpans &spans)
{
    if (!operand.isBox())
        return lengthFactor(operand.edge) * length;
    const ZelLayoutSpan &span = spans[size_t(operand.box)];
    switch (operand.edge) {
    case Constraint::Start:
        return span.start;
    case Constraint::End:
        return span.end();
    case Constraint::Center:
        return span.start + span.length / 2;
    default:
        return span.length;
    }
}

/// How far the difference is from what the relation allows.
double missOf(double difference, Constraint::Relation relation)
{
    return relation == Constraint::Equal ? std::abs(difference) : std::max(0.0, -relation * difference);
}

} // namespace

// ---- components

void ZelLayoutAxis::setConstraints(ZelAxisConstraints constraints, int boxCount)
{
    m_constraints = std::move(constraints);
    m_leftOut.clear();
    m_rows.clear();
    findComponents(boxCount);
    for (Component &component : m_components)
        classify(component);
}

/// Groups the boxes that constraints tie to each other; the container ties nothing.
void ZelLayoutAxis::findComponents(int boxCount)
{
    std::vector<int> roots(size_t(boxCount), 0);
    std::iota(roots.begin(), roots.end(), 0);
    const auto rootOf = [&](int box) {
        while (roots[size_t(box)] != box)
            box = roots[size_t(box)] = roots[size_t(roots[size_t(box)])];
        return box;
    };
    for (const Constraint &c : m_constraints) {
        if (c.first.isBox() && c.second.isBox())
            roots[size_t(rootOf(c.second.box))] = rootOf(c.first.box);
    }
    std::vector<int> componentOfRoot(size_t(boxCount), -1);
    const auto componentOf = [&](int box) -> Component & {
        int &component = componentOfRoot[size_t(rootOf(box))];
        if (component < 0) {
            component = int(m_components.size());
            m_components.emplace_back();
        }
        return m_components[size_t(component)];
    };
    m_components.clear();
    m_containerConstraints.clear();
    for (int i = 0; i < boxCount; ++i)
        ++componentOf(i).boxCount;
    const auto boxOf = [](const Constraint &c) {
        return c.first.isBox() ? c.first.box : c.second.isBox() ? c.second.box : Constraint::Container;
    };
    for (size_t i = 0; i < m_constraints.size(); ++i) {
        const int box = boxOf(m_constraints[i]);
        if (box == Constraint::Container) {
            m_containerConstraints.push_back(int(i));
            continue;
        }
        Component &component = componentOf(box);
        ++component.constraintCount;
        component.reachesEnd |= dependsOnLength(m_constraints[i]);
    }
    int boxes = 0;
    int constraints = 0;
    for (Component &component : m_components) {
        component.firstBox = boxes;
        component.firstConstraint = constraints;
        boxes += std::exchange(component.boxCount, 0);
        constraints += std::exchange(component.constraintCount, 0);
    }
    m_order.resize(size_t(boxes));
    m_constraintOrder.resize(size_t(constraints));
    for (int i = 0; i < boxCount; ++i) {
        Component &component = componentOf(i);
        m_order[size_t(component.firstBox + component.boxCount++)] = i;
    }
    for (size_t i = 0; i < m_constraints.size(); ++i) {
        const int box = boxOf(m_constraints[i]);
        if (box == Constraint::Container)
            continue;
        Component &component = componentOf(box);
        m_constraintOrder[size_t(component.firstConstraint + component.constraintCount++)] = int(i);
    }
}

std::span<const int> ZelLayoutAxis::boxesOf(const Component &c) const
{
    return std::span(m_order).subspan(size_t(c.firstBox), size_t(c.boxCount));
}

std::span<const int> ZelLayoutAxis::constraintsOf(const Component &c) const
{
    return std::span(m_constraintOrder).subspan(size_t(c.firstConstraint), size_t(c.constraintCount));
}

void ZelLayoutAxis::classify(Component &component)
{
    if (findPins(component)) {
        component.kind = Kind::Pinned;
    } else if (auto pattern = ZelRowPattern::recognize(boxesOf(component), constraintsOf(component), m_constraints)) {
        component.kind = Kind::Row;
        component.row = int(m_rows.size());
        m_rows.emplace_back(std::move(*pattern));
    }
}

/// A box with both ends at required distances from the container's.
bool ZelLayoutAxis::findPins(Component &component) const
{
    if (component.boxCount != 1 || component.constraintCount != 2)
        return false;
    for (const int index : constraintsOf(component)) {
        const Constraint &c = m_constraints[size_t(index)];
        const bool isSwapped = !c.first.isBox();
        const Constraint::Operand &box = isSwapped ? c.second : c.first;
        const Constraint::Operand &container = isSwapped ? c.first : c.second;
        if (!c.isRequired() || c.relation != Constraint::Equal || c.multiplier != 1 || c.hasOffsets ||
            box.edge != container.edge || (box.edge != Constraint::Start && box.edge != Constraint::End))
            return false;
        (box.edge == Constraint::Start ? component.startPin : component.endPin) = {index, isSwapped ? -1.0 : 1.0};
    }
    return component.startPin.isSet() && component.endPin.isSet();
}

// ---- solutions

void ZelLayoutAxis::solve(const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans)
{
    m_leftOut.clear();
    spans.resize(boxes.size());
    if (m_solvesGenerally) {
        solveGenerally(m_order, m_constraintOrder, boxes, length, spans);
        return;
    }
    for (const Component &component : m_components)
        solveComponent(component, boxes, length, spans);
}

void ZelLayoutAxis::solveComponent(const Component &component, const ZelLayoutBoxes &boxes, double length,
                                   ZelLayoutSpans &spans)
{
    if (component.kind == Kind::Pinned) {
        const double start = component.startPin.in(m_constraints);
        const double end = length + component.endPin.in(m_constraints);
        spans[size_t(m_order[size_t(component.firstBox)])] = {start, end - start};
    } else if (component.kind == Kind::General ||
               !m_rows[size_t(component.row)].solve(m_constraints, boxes, length, spans)) {
        solveGenerally(boxesOf(component), constraintsOf(component), boxes, length, spans);
    }
}

double ZelLayoutAxis::fittingLength(const ZelLayoutBoxes &boxes)
{
    m_leftOut.clear();
    const Component *only = nullptr;
    int reaching = 0;
    bool arePinned = !m_solvesGenerally;
    for (const Component &component : m_components) {
        if (!component.reachesEnd)
            continue;
        ++reaching;
        only = &component;
        arePinned &= component.kind == Kind::Pinned;
    }
    if (arePinned)
        return fitPinned(boxes);
    if (reaching == 1 && only->kind == Kind::Row && m_containerConstraints.empty() && !m_solvesGenerally) {
        if (const auto length = m_rows[size_t(only->row)].fittingLength(m_constraints, boxes))
            return *length;
    }
    return fitTogether(boxes);
}

/// The container's length when every length of a box is that length less a constant.
double ZelLayoutAxis::fitPinned(const ZelLayoutBoxes &boxes) const
{
    using Line = ZelLineMinimizer;
    Line line;
    for (auto component = m_components.rbegin(); component != m_components.rend(); ++component) {
        if (!component->reachesEnd)
            continue;
        const ZelLayoutBox &box = boxes[size_t(m_order[size_t(component->firstBox)])];
        const double margins = component->endPin.in(m_constraints)-component->startPin.in(m_constraints);
        line.addGoal(1, margins, Line::NotBelow, ZelLayoutBox::NotNegativePriority);
        if (box.minimum > 0)
            line.addGoal(1, margins - box.minimum, Line::NotBelow, ZelLayoutBox::LimitPriority);
        if (std::isfinite(box.maximum))
            line.addGoal(1, margins - box.maximum, Line::NotAbove, ZelLayoutBox::LimitPriority);
        line.addGoal(1, margins - box.hint, Line::NotAbove, box.hugging);
        line.addGoal(1, margins - box.hint, Line::NotBelow, box.compression);
    }
    line.addGoal(1, 0, Line::NotBelow, ZelLayoutBox::NotNegativePriority);
    for (const int index : m_containerConstraints) {
        const Constraint &c = m_constraints[size_t(index)];
        line.addGoal(lengthFactor(c.first.edge) - c.multiplier * lengthFactor(c.second.edge), -c.bias(),
                     Line::Relation(c.relation), c.priority);
    }
    line.addGoal(1, 0, Line::NotAbove, ZelLayoutBox::FittingPriority);
    line.advance(0);
    return line.value();
}

/// The container's length from all components that depend on it.
double ZelLayoutAxis::fitTogether(const ZelLayoutBoxes &boxes)
{
    std::vector<int> reaching;
    std::vector<int> constraints;
    for (const Component &component : m_components) {
        if (!component.reachesEnd && !m_solvesGenerally)
            continue;
        const auto componentBoxes = boxesOf(component);
        const auto componentConstraints = constraintsOf(component);
        reaching.insert(reaching.end(), componentBoxes.begin(), componentBoxes.end());
        constraints.insert(constraints.end(), componentConstraints.begin(), componentConstraints.end());
    }
    constraints.insert(constraints.end(), m_containerConstraints.begin(), m_containerConstraints.end());
    std::sort(reaching.begin(), reaching.end());
    std::sort(constraints.begin(), constraints.end());
    ZelLayoutSpans spans(boxes.size());
    return solveGenerally(reaching, constraints, boxes, {}, spans);
}

// ---- the general solver: variables 2p and 2p + 1 are a box's start and length, the last is a free container's length

/// Answers the container's length.
double ZelLayoutAxis::solveGenerally(std::span<const int> boxes, std::span<const int> constraints,
                                     const ZelLayoutBoxes &all, Length length, ZelLayoutSpans &spans)
{
    using Solver = ZelConstraintSolver;
    beginGoals(boxes, length);
    for (size_t i = boxes.size(); i-- > 0;)
        addBoxGoals(int(i), all[size_t(boxes[i])]);
    if (!length)
        m_solver.addGoal({{m_lengthVariable, 1}}, 0, Solver::NotBelow, ZelLayoutBox::NotNegativePriority);
    const int firstConstraint = m_solver.goalCount();
    for (const int constraint : constraints)
        addConstraintGoal(constraint, length);
    if (!length)
        m_solver.addGoal({{m_lengthVariable, 1}}, 0, Solver::Equal, ZelLayoutBox::FittingPriority);
    for (size_t i = 0; i < boxes.size(); ++i)
        m_solver.addGoal({{2 * int(i), 1}}, 0, Solver::Equal, PlacePriority);
    m_solver.solve();
    for (const int goal : m_solver.leftOut())
        m_leftOut.push_back(constraints[size_t(goal - firstConstraint)]);
    for (size_t i = 0; i < boxes.size(); ++i)
        spans[size_t(boxes[i])] = {m_solver.value(2 * int(i)), m_solver.value(2 * int(i) + 1)};
    return length ? *length : m_solver.value(m_lengthVariable);
}

void ZelLayoutAxis::beginGoals(std::span<const int> boxes, Length length)
{
    m_lengthVariable = 2 * int(boxes.size());
    m_solver.reset(m_lengthVariable + (length ? 0 : 1));
    m_places.resize(m_order.size());
    for (size_t i = 0; i < boxes.size(); ++i)
        m_places[size_t(boxes[i])] = int(i);
}

void ZelLayoutAxis::addBoxGoals(int place, const ZelLayoutBox &box)
{
    using Solver = ZelConstraintSolver;
    const int length = 2 * place + 1;
    m_solver.addGoal({{length, 1}}, 0, Solver::NotBelow, ZelLayoutBox::NotNegativePriority);
    if (box.minimum > 0)
        m_solver.addGoal({{length, 1}}, -box.minimum, Solver::NotBelow, ZelLayoutBox::LimitPriority);
    if (std::isfinite(box.maximum))
        m_solver.addGoal({{length, 1}}, -box.maximum, Solver::NotAbove, ZelLayoutBox::LimitPriority);
    m_solver.addGoal({{length, 1}}, -box.hint, Solver::NotAbove, box.hugging);
    m_solver.addGoal({{length, 1}}, -box.hint, Solver::NotBelow, box.compression);
}

void ZelLayoutAxis::addConstraintGoal(int constraint, Length length)
{
    const Constraint &c = m_constraints[size_t(constraint)];
    m_terms.clear();
    m_termConstant = -c.bias();
    addTerms(c.first, 1, length);
    addTerms(c.second, -c.multiplier, length);
    m_solver.addGoal(m_terms, m_termConstant, ZelConstraintSolver::Relation(c.relation), c.priority);
}

void ZelLayoutAxis::addTerms(const Constraint::Operand &operand, double factor, Length length)
{
    if (!operand.isBox()) {
        const double part = factor * lengthFactor(operand.edge);
        if (length)
            m_termConstant += part * *length;
        else if (part != 0)
            m_terms.push_back({m_lengthVariable, part});
        return;
    }
    const int start = 2 * m_places[size_t(operand.box)];
    if (operand.edge != Constraint::Length)
        m_terms.push_back({start, factor});
    if (operand.edge != Constraint::Start)
        m_terms.push_back({start + 1, operand.edge == Constraint::Center ? factor / 2 : factor});
}

// ---- conflicts

std::vector<int> ZelLayoutAxis::conflict(int constraint)
{
    std::vector<int> set;
    for (int i = 0; i <= constraint; ++i) {
        const bool isOut = i != constraint && std::find(m_leftOut.begin(), m_leftOut.end(), i) != m_leftOut.end();
        if (m_constraints[size_t(i)].isRequired() && !isOut)
            set.push_back(i);
    }
    if (isSatisfiable(set))
        return {};
    // A constraint without which the rest can be satisfied belongs to the conflict. Many constraints are not worth it.
    constexpr size_t Many = 200;
    for (size_t i = 0; i + 1 < set.size() && set.size() < Many;) {
        std::vector<int> others = set;
        others.erase(others.begin() + ptrdiff_t(i));
        if (isSatisfiable(others))
            ++i;
        else
            set = std::move(others);
    }
    return set;
}

/// Whether the constraints can hold together in a container of some length.
bool ZelLayoutAxis::isSatisfiable(std::span<const int> constraints)
{
    beginGoals(m_order, {});
    for (const int constraint : constraints)
        addConstraintGoal(constraint, {});
    m_solver.solve();
    return m_solver.leftOut().empty();
}

// ---- resistance

float ZelLayoutAxis::resistance(const ZelLayoutBoxes &boxes, double length, double change)
{
    m_misses.clear();
    ZelLayoutSpans spans;
    solve(boxes, length, spans);
    addMisses(boxes, length, spans, -1);
    solve(boxes, length + change, spans);
    addMisses(boxes, length + change, spans, 1);
    float highest = 0;
    double difference = 0;
    for (const auto &[priority, amount] : m_misses) {
        if (std::abs(amount) > Tiny && priority > highest) {
            highest = priority;
            difference = amount;
        }
    }
    return difference > 0 ? highest : 0;
}

void ZelLayoutAxis::addMisses(const ZelLayoutBoxes &boxes, double length, const ZelLayoutSpans &spans, double sign)
{
    for (size_t i = 0; i < boxes.size(); ++i) {
        const ZelLayoutBox &box = boxes[i];
        const double boxLength = spans[i].length;
        addMiss(ZelLayoutBox::NotNegativePriority, sign * std::max(0.0, -boxLength));
        addMiss(ZelLayoutBox::LimitPriority, sign * std::max(0.0, box.minimum - boxLength));
        addMiss(ZelLayoutBox::LimitPriority, sign * std::max(0.0, boxLength - box.maximum));
        addMiss(box.hugging, sign * std::max(0.0, boxLength - box.hint));
        addMiss(box.compression, sign * std::max(0.0, box.hint - boxLength));
    }
    for (const Constraint &c : m_constraints) {
        const double value = valueOf(c.first, length, spans) -
                             (c.second.edge == Constraint::None ? 0 : c.multiplier * valueOf(c.second, length, spans));
        addMiss(c.priority, sign * missOf(value - c.bias(), c.relation));
    }
}

void ZelLayoutAxis::addMiss(float priority, double amount)
{
    if (amount == 0)
        return;
    const auto level =
        std::find_if(m_misses.rbegin(), m_misses.rend(), [&](const auto &entry) { return entry.first == priority; });
    if (level != m_misses.rend())
        level->second += amount;
    else
        m_misses.emplace_back(priority, amount);
}
