// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelAxisConstraint.h"
#include "Platform/Layout/ZelLayoutBox.h"

#include <memory>
#include <optional>
#include <unordered_map>

/// What was lately found out about small axes, for others that have the same constraints and boxes.
///
/// The rows of a form are built alike and want the same, so that one list of constraints and one solution serve them
/// all. Equality decides, never the hash alone. A table that has grown large is emptied: what is still in use comes
/// back with the next question.
class ZelAxisAnswers
{
public:
    using Constraints = std::shared_ptr<const ZelAxisConstraints>;

    struct Solution
    {
        double length;
        ZelLayoutSpans spans;
    };
    /// How a container of its fitting length resists; see ZelLayoutAxis::resistance().
    struct Resistance
    {
        float hugging;
        float compression;
    };

    /// The answers for one axis. Only those are kept for which no required constraint had to be left out.
    struct Entry
    {
        std::optional<double> fittingLength;
        std::optional<Resistance> resistance;

        const ZelLayoutSpans *solution(double length) const;
        void setSolution(double length, const ZelLayoutSpans &spans);

    private:
        friend class ZelAxisAnswers;

        Constraints m_constraints;
        ZelLayoutBoxes m_boxes;
        std::vector<Solution> m_solutions; // the last few
    };

    /// The table of the thread.
    static ZelAxisAnswers &instance();

    /// Whether to look for an axis of that size. Large ones are hardly ever alike.
    static bool isSmall(size_t constraints, size_t boxes) { return constraints <= 24 && boxes <= 12; }
    /// The one list for all that are equal.
    Constraints shared(ZelAxisConstraints &&constraints);
    /// The entry of an axis with a shared list, a new one if it has none. It stays until the next look-up.
    Entry &entryFor(const Constraints &constraints, const ZelLayoutBoxes &boxes);

private:
    std::unordered_map<size_t, std::weak_ptr<const ZelAxisConstraints>> m_lists; // by hash
    std::unordered_map<size_t, Entry> m_entries;
};
