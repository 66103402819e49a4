// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/private/ZelSearchIndex.h"

/// Marks words in the titles that are on the screen: those of rows and of their editors, of sections and of headers.
class ZelSearchMarks
{
public:
    /// The widgets with the titles by which the node is found: those of all parts of a row. Only loaded ones.
    static QList<QWidget *> titledOf(const ZelSearchIndex::Node &node);

    /// Marks the words in the titles, and nothing in those that were marked before. The words are folded.
    void mark(const std::vector<QPointer<QWidget>> &titled, const QStringList &words);
    void clear() { mark({}, {}); }
    /// Whether the control shows a title that is marked, or belongs to the editor whose title is.
    bool areOf(const QWidget *control) const;

private:
    std::vector<QPointer<QWidget>> m_marked;
};
