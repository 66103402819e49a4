// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/private/ZelSearchIndex.h"

/// What a search says of what it found, pane by pane.
class ZelSearchOutcome
{
public:
    ZelSearchOutcome(const ZelSearchIndex &index, const std::vector<ZelSearchIndex::Finding> &findings,
                     size_t paneCount);

    /// How many rows are shown because they were found.
    int foundCount() const;
    /// How many rows were found, and how many of them conditions hide.
    QString text() const;
    /// For each pane why rows that were found are hidden, a line each.
    QStringList notes() const;
    /// The number on each tab: the rows that are shown; negative for no number, as where all that was found is hidden.
    std::vector<int> tabCounts() const;
    /// The present pane, unless nothing was found in it: then the first one with a row that is shown, or else with a
    /// hidden one.
    qsizetype paneToShow(qsizetype present) const;

private:
    struct Pane
    {
        int found = 0;
        QStringList notes;
    };

    std::vector<Pane> m_panes;
    int m_hiddenCount = 0;
};
