// SPDX-License-Identifier: MIT
#include "Layout/private/ZelLayoutAxis.h"

#include "Layout/private/ZelLineMinimizer.h"

#include <algorithm>
#include <cmath>
#include <numeric>

// The order in which goals are added decides among goals of one priority. Wishes of boxes are added before constraints,
// so that a box keeps its hint where both cannot be had. Those of later boxes are added before those of earlier ones,
// so that room left over goes to the first box that can take it.

namespace {

using Constraint = ZelAxisConstraint;
constexpr double g_leastOverrun = 1e-6;
constexpr float g_placePriority = 0.001F; // keeps boxes that nothing places at the container's start

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

/// One solver for all axes of a thread, so that its storage is made once.
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

// ---- constraints and answers

void ZelLayoutAxis::setConstraints(ZelAxisConstraints constraints, int boxCount)
{
    m_constraints = std::make_shared<ZelAxisConstraints>(std::move(constraints));
    m_hash = 0;
    m_isTakenApart = false;
    m_boxCount = boxCount;
    m_leftOut.clear();
}

ZelAxisConstraint &ZelLayoutAxis::change(int constraint)
{
    if (m_constraints.use_count() > 1)
        m_constraints = std::make_shared<ZelAxisConstraints>(all());
    m_hash = 0;
    return (*m_constraints)[size_t(constraint)];
}

double ZelLayoutAxis::offset(int constraint, bool isSecond) const
{
    const Constraint &c = all()[size_t(constraint)];
    return isSecond ? c.second.offset : c.first.offset;
}

void ZelLayoutAxis::setOffset(int constraint, bool isSecond, double offset)
{
    Constraint &c = change(constraint);
    (isSecond ? c.second : c.first).offset = offset;
}

ZelAxisAnswers *ZelLayoutAxis::answers(const ZelLayoutBoxes &boxes)
{
    m_leftOut.clear();
    if (m_solvesGenerally)
        return nullptr;
    if (m_hash == 0)
        m_hash = ZelAxisAnswers::hashOf(all());
    return ZelAxisAnswers::of(m_constraints, m_hash, boxes);
}

void ZelLayoutAxis::solve(const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans)
{
    ZelAxisAnswers *known = answers(boxes);
    if (const ZelLayoutSpans *solution = known ? known->solution(length) : nullptr) {
        spans = *solution;
        return;
    }
    findSolution(boxes, length, spans);
    if (known && m_leftOut.empty())
        known->addSolution(length, spans);
}

double ZelLayoutAxis::fittingLength(const ZelLayoutBoxes &boxes)
{
    ZelAxisAnswers *known = answers(boxes);
    if (known && known->fittingLength)
        return *known->fittingLength;
    const double length = findFittingLength(boxes);
    if (known && m_leftOut.empty())
        known->fittingLength = length;
    return length;
}

ZelAxisResistance ZelLayoutAxis::resistance(const ZelLayoutBoxes &boxes)
{
    ZelAxisAnswers *known = answers(boxes);
    if (known && known->resistance)
        return *known->resistance;
    // Neither fittingLength() nor solve() may be called here: `known` is valid until the next question only.
    const double length = findFittingLength(boxes);
    const float hugging = findResistance(boxes, length, 1);
    const ZelAxisResistance resistance{hugging, findResistance(boxes, length, -1)};
    if (known && m_leftOut.empty())
        known->resistance = resistance;
    return resistance;
}

// ---- parts

void ZelLayoutAxis::takeApart()
{
    if (std::exchange(m_isTakenApart, true))
        return;
    m_rows.clear();
    m_methods.clear();
    m_parts = m_solvesGenerally ? ZelAxisParts::whole(all(), m_boxCount) : ZelAxisParts(all(), m_boxCount);
    for (const Part &part : m_parts.parts())
        m_methods.push_back(m_solvesGenerally ? Method() : methodFor(part));
}

ZelLayoutAxis::Method ZelLayoutAxis::methodFor(const Part &part)
{
    Method method;
    if (findPins(part, method)) {
        method.kind = Kind::Pinned;
    } else if (auto pattern = ZelRowPattern::recognize(m_parts.boxesOf(part), m_parts.constraintsOf(part), all())) {
        method.kind = Kind::Row;
        method.row = int(m_rows.size());
        m_rows.emplace_back(std::move(*pattern));
    }
    return method;
}

/// Finds out whether the part is one box with both ends at required distances from the container's ends.
bool ZelLayoutAxis::findPins(const Part &part, Method &method) const
{
    if (part.boxCount != 1 || part.constraintCount != 2)
        return false;
    for (const int index : m_parts.constraintsOf(part)) {
        const Constraint &c = all()[size_t(index)];
        const bool isSwapped = !c.first.isBox();
        const bool isDistance = c.isRequired() && c.relation == Constraint::Equal && c.multiplier == 1 && !c.hasOffsets;
        const bool isOfEnds =
            c.first.edge == c.second.edge && (c.first.edge == Constraint::Start || c.first.edge == Constraint::End);
        if (!isDistance || !isOfEnds || (c.first.isBox() && c.second.isBox()))
            return false;
        (c.first.edge == Constraint::Start ? method.startPin : method.endPin) = {index, isSwapped ? -1.0 : 1.0};
    }
    return method.startPin.isSet() && method.endPin.isSet();
}

// ---- solutions

void ZelLayoutAxis::findSolution(const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans)
{
    takeApart();
    spans.resize(boxes.size());
    for (size_t i = 0; i < m_methods.size(); ++i)
        solvePart(i, boxes, length, spans);
}

void ZelLayoutAxis::solvePart(size_t index, const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans)
{
    const Part &part = m_parts.parts()[index];
    const Method &method = m_methods[index];
    if (method.kind == Kind::Pinned) {
        const double start = method.startPin.in(all());
        const double end = length + method.endPin.in(all());
        spans[size_t(onlyBoxOf(part))] = {start, end - start};
    } else if (method.kind == Kind::General || !m_rows[size_t(method.row)].solve(all(), boxes, length, spans)) {
        solveGenerally(m_parts.boxesOf(part), m_parts.constraintsOf(part), boxes, length, spans);
    }
}

double ZelLayoutAxis::findFittingLength(const ZelLayoutBoxes &boxes)
{
    takeApart();
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
        if (const auto length = m_rows[size_t(m_methods[last].row)].fittingLength(all(), boxes))
            return *length;
    }
    return fitTogether(boxes);
}

/// Finds the container's length when each box is as long as the container less a constant.
double ZelLayoutAxis::fitPinned(const ZelLayoutBoxes &boxes) const
{
    using Line = ZelLineMinimizer;
    Line line;
    for (size_t i = m_methods.size(); i-- > 0;) {
        if (!m_parts.parts()[i].reachesEnd)
            continue;
        const ZelLayoutBox &box = boxes[size_t(onlyBoxOf(m_parts.parts()[i]))];
        const double margins = m_methods[i].endPin.in(all()) - m_methods[i].startPin.in(all());
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
        const Constraint &c = all()[size_t(index)];
        const double factor =
            ZelAxisParts::lengthFactor(c.first.edge) - c.multiplier * ZelAxisParts::lengthFactor(c.second.edge);
        line.addGoal(factor, -c.bias(), Line::Relation(c.relation), c.priority);
    }
    line.addGoal(1, 0, Line::NotAbove, ZelLayoutBox::FittingPriority);
    line.advance(0);
    return line.value();
}

/// Finds the container's length from all parts that depend on it.
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

// ---- the general solver: the box at place p has the variables 2p (start) and 2p + 1 (length); the last variable is
// the container's length where it is to be found

/// Solves for the boxes. Answers the container's length.
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
        solver().addGoal({{2 * int(i), 1}}, 0, Solver::Equal, g_placePriority);
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
    const Constraint &c = all()[size_t(constraint)];
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
        if (all()[size_t(i)].isRequired() && !isOut)
            set.push_back(i);
    }
    if (isSatisfiable(set))
        return {};
    // A constraint belongs to the conflict if the others can be satisfied without it. For many constraints the search
    // would take too long; all of them are named then.
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

/// Answers the highest priority whose misses change when a container of that length changes by so much, or 0 if they
/// become less.
float ZelLayoutAxis::findResistance(const ZelLayoutBoxes &boxes, double length, double change)
{
    m_misses.clear();
    ZelLayoutSpans spans;
    findSolution(boxes, length, spans);
    addMisses(boxes, length, spans, -1);
    findSolution(boxes, length + change, spans);
    addMisses(boxes, length + change, spans, 1);
    float highest = 0;
    double difference = 0;
    for (const auto &[priority, amount] : m_misses) {
        if (std::abs(amount) > g_leastOverrun && priority > highest) {
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
    for (const Constraint &c : all()) {
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
