// SPDX-License-Identifier: MIT
#include "Platform/Layout/ZelAxisAnswers.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

namespace {

constexpr size_t Many = 3; // solutions for as many lengths are kept
constexpr size_t Large = 500;

size_t mix(size_t hash, uint64_t word)
{
    hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
    return hash ^ (hash >> 29);
}

size_t mix(size_t hash, double number)
{
    return mix(hash, std::bit_cast<uint64_t>(number));
}

/// Box, edge and one more small number in one word.
uint64_t packed(const ZelAxisConstraint::Operand &operand, int extra)
{
    return (uint64_t(uint32_t(operand.box)) << 16) ^ (uint64_t(uint8_t(operand.edge)) << 8) ^ uint8_t(extra);
}

size_t hashOf(const ZelAxisConstraints &constraints)
{
    size_t hash = constraints.size();
    for (const ZelAxisConstraint &c : constraints) {
        hash = mix(hash, packed(c.first, c.relation) ^ (packed(c.second, c.hasOffsets) << 32));
        hash = mix(mix(hash, c.constant), c.multiplier);
        hash = mix(mix(hash, c.first.offset), c.second.offset);
        hash = mix(hash, double(c.priority));
    }
    return hash;
}

} // namespace

const ZelLayoutSpans *ZelAxisAnswers::Entry::solution(double length) const
{
    const auto known =
        std::find_if(m_solutions.begin(), m_solutions.end(), [=](auto &solution) { return solution.length == length; });
    return known == m_solutions.end() ? nullptr : &known->spans;
}

void ZelAxisAnswers::Entry::setSolution(double length, const ZelLayoutSpans &spans)
{
    if (m_solutions.size() == Many)
        m_solutions.erase(m_solutions.begin()); // the oldest
    m_solutions.push_back({length, spans});
}

ZelAxisAnswers &ZelAxisAnswers::instance()
{
    static thread_local ZelAxisAnswers answers;
    return answers;
}

ZelAxisAnswers::Constraints ZelAxisAnswers::shared(ZelAxisConstraints &&constraints)
{
    const size_t hash = hashOf(constraints);
    if (const auto known = m_lists.find(hash); known != m_lists.end()) {
        const Constraints list = known->second.lock();
        if (list && *list == constraints)
            return list;
    }
    if (m_lists.size() >= Large)
        std::erase_if(m_lists, [](const auto &entry) { return entry.second.expired(); });
    const auto list = std::make_shared<const ZelAxisConstraints>(std::move(constraints));
    m_lists[hash] = list;
    return list;
}

ZelAxisAnswers::Entry &ZelAxisAnswers::entryFor(const Constraints &constraints, const ZelLayoutBoxes &boxes)
{
    size_t hash = mix(size_t(boxes.size()), std::bit_cast<uintptr_t>(constraints.get()));
    for (const ZelLayoutBox &box : boxes) {
        hash = mix(mix(hash, box.hint), box.minimum);
        hash = mix(mix(hash, box.maximum), double(box.hugging) + 1024 * double(box.compression));
    }
    const auto known = m_entries.find(hash);
    if (known != m_entries.end() && known->second.m_constraints == constraints && known->second.m_boxes == boxes)
        return known->second;
    if (m_entries.size() >= Large)
        m_entries.clear();
    Entry &entry = m_entries[hash];
    entry = {};
    entry.m_constraints = constraints;
    entry.m_boxes = boxes;
    return entry;
}
