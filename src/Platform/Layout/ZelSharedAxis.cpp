// SPDX-License-Identifier: MIT
#include "Platform/Layout/ZelSharedAxis.h"

#include <utility>

void ZelSharedAxis::setConstraints(ZelAxisConstraints constraints, int boxCount)
{
    m_own = std::move(constraints);
    m_shared.reset();
    m_boxCount = boxCount;
    m_axis.reset();
}

ZelAxisConstraint &ZelSharedAxis::constraint(int index)
{
    if (const ZelAxisAnswers::Constraints shared = std::exchange(m_shared, {}))
        m_own = *shared;
    return m_own[size_t(index)];
}

void ZelSharedAxis::setConstant(int constraint, double constant)
{
    this->constraint(constraint).constant = constant;
    if (m_axis && !m_axis->setConstant(constraint, constant))
        m_axis.reset();
}

double ZelSharedAxis::offset(int constraint, bool isSecond) const
{
    const ZelAxisConstraint &c = constraints()[size_t(constraint)];
    return isSecond ? c.second.offset : c.first.offset;
}

void ZelSharedAxis::setOffset(int constraint, bool isSecond, double offset)
{
    const auto set = [=](ZelAxisConstraint &c) { (isSecond ? c.second : c.first).offset = offset; };
    set(this->constraint(constraint));
    if (m_axis)
        set(m_axis->constraint(constraint));
}

ZelLayoutAxis &ZelSharedAxis::axis()
{
    if (!m_axis) {
        m_axis = std::make_unique<ZelLayoutAxis>();
        m_axis->setConstraints(constraints(), m_boxCount);
    }
    return *m_axis;
}

ZelAxisAnswers::Entry *ZelSharedAxis::answers(const ZelLayoutBoxes &boxes)
{
    if (!ZelAxisAnswers::isSmall(constraints().size(), boxes.size()))
        return nullptr;
    ZelAxisAnswers &table = ZelAxisAnswers::instance();
    if (!m_shared)
        m_shared = table.shared(std::exchange(m_own, {}));
    return &table.entryFor(m_shared, boxes);
}

void ZelSharedAxis::solve(const ZelLayoutBoxes &boxes, double length, ZelLayoutSpans &spans)
{
    ZelAxisAnswers::Entry *known = answers(boxes);
    m_isLastFromAxis = false;
    if (const ZelLayoutSpans *solution = known ? known->solution(length) : nullptr) {
        spans = *solution;
        return;
    }
    axis().solve(boxes, length, spans);
    m_isLastFromAxis = true;
    if (known && isWhole())
        known->setSolution(length, spans);
}

double ZelSharedAxis::fittingLength(const ZelLayoutBoxes &boxes)
{
    ZelAxisAnswers::Entry *known = answers(boxes);
    m_isLastFromAxis = false;
    if (known && known->fittingLength)
        return *known->fittingLength;
    const double length = axis().fittingLength(boxes);
    m_isLastFromAxis = true;
    if (known && isWhole())
        known->fittingLength = length;
    return length;
}

ZelAxisAnswers::Resistance ZelSharedAxis::resistance(const ZelLayoutBoxes &boxes)
{
    ZelAxisAnswers::Entry *known = answers(boxes);
    m_isLastFromAxis = false;
    if (known && known->resistance)
        return *known->resistance;
    const double length = axis().fittingLength(boxes);
    bool isWholeForAll = isWhole();
    const float hugging = axis().resistance(boxes, length, 1);
    isWholeForAll &= isWhole();
    const ZelAxisAnswers::Resistance resistance{hugging, axis().resistance(boxes, length, -1)};
    m_isLastFromAxis = true;
    if (known && isWholeForAll && isWhole())
        known->resistance = resistance;
    return resistance;
}

const std::vector<int> &ZelSharedAxis::leftOut() const
{
    static const std::vector<int> none;
    return m_isLastFromAxis ? m_axis->leftOut() : none;
}
