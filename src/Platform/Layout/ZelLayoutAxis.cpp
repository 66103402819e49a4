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

double valueOf(const Constraint::Operand &operand, double length, const ZelLayoutSpans &spans)
{
    if (!operand.isBox())
        return ZelAxisParts::lengthFactor(operand.edge) * length;
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

/// One for all, so that its storage is made once.
ZelConstraintSolver &solver()
{
    static thread_local ZelConstraintSolver instance;
    return instance;
}

void addBoxGoals(int place, const ZelLayoutBox &box)
{
    using Solver = ZelConstraintSolver;
    const int length = 2 * place + 1;
    solver().addGoal({{length, 1}}, 0, Solver::NotBelow, ZelLayoutBox::NotNegativePriority);
    if (box.minimum > 0)
        solver().addGoal({{length, 1}}, -box.minimum, Solver::NotBelow, ZelLayoutBox::LimitPriority);
    if (std::isfinite(box.maximum))
        solver().addGoal({{length, 1}}, -box.maximum, Solver::NotAbove, ZelLayoutBox::LimitPriority);
    solver().addGoal({{length, 1}}, -box.hint, Solver::NotAbove, box.hugging);
    solver().addGoal({{length, 1}}, -box.hint, Solver::NotBelow, box.compression);
}

} // namespace

// ---- parts

void ZelLayoutAxis::setConstraints(ZelAxisConstraints constraints, int boxCount)
{
    m_constraints = std::move(constraints);
    m_boxCount = boxCount;
    m_leftOut.clear();
    m_rows.clear();
    m_methods.clear();
    m_parts = m_solvesGenerally ? ZelAxisParts::whole(m_constraints, boxCount) : ZelAxisParts(m_constraints, boxCount);
    for (const Part &part : m_parts.parts())
        m_methods.push_back(m_solvesGenerally ? Method() : methodFor(part));
}

bool ZelLayoutAxis::setConstant(int index, double constant)
{
    Constraint &c = m_constraints[size_t(index)];
    if (m_parts.hasAlignments() && ZelAxisParts::isAlignment(c))
        return false;
    c.constant = constant;
    return true;
}

ZelLayoutAxis::Method ZelLayoutAxis::methodFor(const Part &part)
{
    Method method;
    if (findPins(part, method)) {
        method.kind = Kind::Pinned;
    } else if (auto pattern =
                   ZelRowPattern::recognize(m_parts.boxesOf(part), m_parts.constraintsOf(part), m_constraints)) {
        method.kind = Kind::Row;
        method.row = int(m_rows.size());
        m_rows.emplace_back(std::move(*pattern));
    }
    return method;
}

/// A box with both ends at required distances from the container's.
bool ZelLayoutAxis::findPins(const Part &part, Method &method) const
{
    if (part.boxCount != 1 || part.constraintCount != 2)
        return false;
    for (const int index : m_parts.constraintsOf(part)) {
        const Constraint &c = m_constraints[size_t(index)];
        const bool isSwapped = !c.first.isBox();
        if (!ZelAxisParts::isAlignment(c) || (c.first.isBox() && c.second.isBox()))
            return false;
        (c.first.edge == Constraint::Start ? method.startPin : method.endPin) = {index, isSwapped ? -1.0 : 1.0};
    }
    return method.startPin.isSet() && method.endPin.isSet();
}

// ---- solutions

void ZelLayoutAxis::solve(const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans)
{
    m_leftOut.clear();
    spans.resize(boxes.size());
    for (size_t i = 0; i < m_methods.size(); ++i)
        solvePart(i, boxes, length, spans);
    placeFollowers(boxes, spans);
}

void ZelLayoutAxis::solvePart(size_t index, const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans)
{
    const Part &part = m_parts.parts()[index];
    const Method &method = m_methods[index];
    if (method.kind == Kind::Pinned) {
        const double start = method.startPin.in(m_constraints);
        const double end = length + method.endPin.in(m_constraints);
        spans[size_t(onlyBoxOf(part))] = {start, end - start};
    } else if (method.kind == Kind::General || !m_rows[size_t(method.row)].solve(m_constraints, boxes, length, spans)) {
        solveGenerally(m_parts.boxesOf(part), m_parts.constraintsOf(part), boxes, length, spans);
    }
}

/// Followers have the lengths that they want, at the place that their one constraint says.
void ZelLayoutAxis::placeFollowers(const ZelLayoutBoxes &boxes, ZelLayoutSpans &spans) const
{
    for (const ZelAxisParts::Follower &follower : m_parts.followers()) {
        const Constraint &c = m_constraints[size_t(follower.constraint)];
        const bool isSecond = c.second.isBox() && c.second.box == follower.box;
        const double place = isSecond ? valueOf(c.first, 0, spans) - c.bias() : valueOf(c.second, 0, spans) + c.bias();
        ZelLayoutSpan &span = spans[size_t(follower.box)];
        span = {0, boxes[size_t(follower.box)].hint};
        span.start = place - valueOf(isSecond ? c.second : c.first, 0, spans);
    }
}

double ZelLayoutAxis::fittingLength(const ZelLayoutBoxes &boxes)
{
    m_leftOut.clear();
    int reaching = 0;
    size_t last = 0;
    bool arePinned = true;
    for (size_t i = 0; i < m_methods.size(); ++i) {
        if (!m_parts.parts()[i].reachesEnd)
            continue;
        ++reaching;
        last = i;
        arePinned &= m_methods[i].kind == Kind::Pinned;
    }
    if (arePinned)
        return fitPinned(boxes);
    if (reaching == 1 && m_methods[last].kind == Kind::Row && m_parts.containerConstraints().empty()) {
        if (const auto length = m_rows[size_t(m_methods[last].row)].fittingLength(m_constraints, boxes))
            return *length;
    }
    return fitTogether(boxes);
}

/// The container's length when every length of a box is that length less a constant.
double ZelLayoutAxis::fitPinned(const ZelLayoutBoxes &boxes) const
{
    using Line = ZelLineMinimizer;
    Line line;
    for (size_t i = m_methods.size(); i-- > 0;) {
        if (!m_parts.parts()[i].reachesEnd)
            continue;
        const ZelLayoutBox &box = boxes[size_t(onlyBoxOf(m_parts.parts()[i]))];
        const double margins = m_methods[i].endPin.in(m_constraints)-m_methods[i].startPin.in(m_constraints);
        line.addGoal(1, margins, Line::NotBelow, ZelLayoutBox::NotNegativePriority);
        if (box.minimum > 0)
            line.addGoal(1, margins - box.minimum, Line::NotBelow, ZelLayoutBox::LimitPriority);
        if (std::isfinite(box.maximum))
            line.addGoal(1, margins - box.maximum, Line::NotAbove, ZelLayoutBox::LimitPriority);
        line.addGoal(1, margins - box.hint, Line::NotAbove, box.hugging);
        line.addGoal(1, margins - box.hint, Line::NotBelow, box.compression);
    }
    line.addGoal(1, 0, Line::NotBelow, ZelLayoutBox::NotNegativePriority);
    for (const int index : m_parts.containerConstraints()) {
        const Constraint &c = m_constraints[size_t(index)];
        const double factor =
            ZelAxisParts::lengthFactor(c.first.edge) - c.multiplier * ZelAxisParts::lengthFactor(c.second.edge);
        line.addGoal(factor, -c.bias(), Line::Relation(c.relation), c.priority);
    }
    line.addGoal(1, 0, Line::NotAbove, ZelLayoutBox::FittingPriority);
    line.advance(0);
    return line.value();
}

/// The container's length from all parts that depend on it.
double ZelLayoutAxis::fitTogether(const ZelLayoutBoxes &boxes)
{
    std::vector<int> reaching;
    std::vector<int> constraints = m_parts.containerConstraints();
    for (const Part &part : m_parts.parts()) {
        if (!part.reachesEnd)
            continue;
        const auto partBoxes = m_parts.boxesOf(part);
        const auto partConstraints = m_parts.constraintsOf(part);
        reaching.insert(reaching.end(), partBoxes.begin(), partBoxes.end());
        constraints.insert(constraints.end(), partConstraints.begin(), partConstraints.end());
    }
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
        solver().addGoal({{m_lengthVariable, 1}}, 0, Solver::NotBelow, ZelLayoutBox::NotNegativePriority);
    const int firstConstraint = solver().goalCount();
    for (const int constraint : constraints)
        addConstraintGoal(constraint, length);
    if (!length)
        solver().addGoal({{m_lengthVariable, 1}}, 0, Solver::Equal, ZelLayoutBox::FittingPriority);
    for (size_t i = 0; i < boxes.size(); ++i)
        solver().addGoal({{2 * int(i), 1}}, 0, Solver::Equal, PlacePriority);
    solver().solve();
    for (const int goal : solver().leftOut())
        m_leftOut.push_back(constraints[size_t(goal - firstConstraint)]);
    for (size_t i = 0; i < boxes.size(); ++i)
        spans[size_t(boxes[i])] = {solver().value(2 * int(i)), solver().value(2 * int(i) + 1)};
    return length ? *length : solver().value(m_lengthVariable);
}

void ZelLayoutAxis::beginGoals(std::span<const int> boxes, Length length)
{
    m_lengthVariable = 2 * int(boxes.size());
    solver().reset(m_lengthVariable + (length ? 0 : 1));
    m_places.resize(size_t(m_boxCount));
    for (size_t i = 0; i < boxes.size(); ++i)
        m_places[size_t(boxes[i])] = int(i);
}

void ZelLayoutAxis::addConstraintGoal(int constraint, Length length)
{
    const Constraint &c = m_constraints[size_t(constraint)];
    m_terms.clear();
    m_termConstant = -c.bias();
    addTerms(c.first, 1, length);
    addTerms(c.second, -c.multiplier, length);
    solver().addGoal(m_terms, m_termConstant, ZelConstraintSolver::Relation(c.relation), c.priority);
}

void ZelLayoutAxis::addTerms(const Constraint::Operand &operand, double factor, Length length)
{
    if (!operand.isBox()) {
        const double part = factor * ZelAxisParts::lengthFactor(operand.edge);
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
    std::vector<int> boxes(size_t(m_boxCount), 0);
    std::iota(boxes.begin(), boxes.end(), 0);
    beginGoals(boxes, {});
    for (const int constraint : constraints)
        addConstraintGoal(constraint, {});
    solver().solve();
    return solver().leftOut().empty();
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
