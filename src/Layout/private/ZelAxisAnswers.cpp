// SPDX-License-Identifier: MIT
#include "Layout/private/ZelAxisAnswers.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <unordered_map>

namespace {

/// What is known of one axis. Its constraints and boxes are compared: the hash alone never decides.
struct Known
{
    ZelAxisAnswers::Constraints constraints;
    ZelLayoutBoxes boxes;
    ZelAxisAnswers answers;
};

size_t mix(size_t hash, uint64_t word)
{
    hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
    return hash ^ (hash >> 29);
}

size_t mix(size_t hash, double number)
{
    return mix(hash, std::bit_cast<uint64_t>(number));
}

uint64_t packed(const ZelAxisConstraint::Operand &operand)
{
    return (uint64_t(uint32_t(operand.box)) << 8) ^ uint8_t(operand.edge);
}

} // namespace

const ZelLayoutSpans *ZelAxisAnswers::solution(double length) const
{
    const auto known = std::find_if(solutions.begin(), solutions.end(),
                                    [=](const auto &solution) { return solution.first == length; });
    return known == solutions.end() ? nullptr : &known->second;
}

void ZelAxisAnswers::addSolution(double length, const ZelLayoutSpans &spans)
{
    constexpr size_t Many = 3;
    if (solutions.size() == Many)
        solutions.erase(solutions.begin());
    solutions.emplace_back(length, spans);
}

size_t ZelAxisAnswers::hashOf(const ZelAxisConstraints &constraints)
{
    size_t hash = constraints.size();
    for (const ZelAxisConstraint &c : constraints) {
        hash = mix(hash, packed(c.first) ^ (packed(c.second) << 24) ^ uint64_t(uint8_t(c.relation)));
        hash = mix(mix(hash, c.bias()), double(c.priority));
    }
    return hash;
}

ZelAxisAnswers *ZelAxisAnswers::of(Constraints &constraints, size_t hash, const ZelLayoutBoxes &boxes)
{
    static thread_local std::unordered_map<size_t, Known> table;
    constexpr size_t Large = 500; // a table of that size is cleared; what is still in use comes back when asked for
    if (constraints->size() > 24 || boxes.size() > 12)
        return nullptr;
    for (const ZelLayoutBox &box : boxes) {
        hash = mix(mix(hash, box.hint), box.minimum);
        hash = mix(mix(hash, box.maximum), double(box.hugging) + 1024 * double(box.compression));
    }
    const auto known = table.find(hash);
    if (known != table.end() && known->second.boxes == boxes &&
        (known->second.constraints == constraints || *known->second.constraints == *constraints)) {
        constraints = known->second.constraints;
        return &known->second.answers;
    }
    if (table.size() >= Large)
        table.clear();
    return &(table[hash] = {constraints, boxes, {}}).answers;
}
