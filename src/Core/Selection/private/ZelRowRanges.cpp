// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelRowRanges.h"

#include <QHash>
#include <QSet>
#include <QVarLengthArray>
#include <algorithm>
#include <vector>

namespace {

/// The rows on the way from the root to a range.
using RowPath = QVarLengthArray<int, 8>;

RowPath pathOf(const QItemSelectionRange &range)
{
    RowPath path{range.top()};
    for (QModelIndex parent = range.parent(); parent.isValid(); parent = parent.parent())
        path.append(parent.row());
    std::reverse(path.begin(), path.end());
    return path;
}

/// The valid ranges, none of which goes on after a row that other ranges lie below.
QItemSelection split(const QItemSelection &selection)
{
    QHash<QModelIndex, QSet<int>> ancestors; // the rows below each parent
    for (const QItemSelectionRange &range : selection) {
        for (QModelIndex row = range.parent(); row.isValid(); row = row.parent())
            ancestors[row.parent()].insert(row.row());
    }
    QItemSelection parts;
    parts.reserve(selection.size());
    for (const QItemSelectionRange &range : selection) {
        if (!range.isValid())
            continue;
        int top = range.top();
        const QModelIndex first = range.topLeft();
        const QModelIndex last = range.bottomRight();
        const auto cuts = ancestors.constFind(range.parent());
        for (int row = top; cuts != ancestors.constEnd() && row < range.bottom(); ++row) {
            if (!cuts->contains(row))
                continue;
            parts.append(QItemSelectionRange(first.siblingAtRow(top), last.siblingAtRow(row)));
            top = row + 1;
        }
        parts.append(QItemSelectionRange(first.siblingAtRow(top), last));
    }
    return parts;
}

} // namespace

QItemSelection ZelRowRanges::sorted(const QItemSelection &selection)
{
    const QItemSelection parts = split(selection);
    std::vector<std::pair<RowPath, qsizetype>> places;
    places.reserve(size_t(parts.size()));
    for (qsizetype i = 0; i < parts.size(); ++i)
        places.emplace_back(pathOf(parts.at(i)), i);
    std::sort(places.begin(), places.end(), [](const auto &a, const auto &b) {
        return std::lexicographical_compare(a.first.begin(), a.first.end(), b.first.begin(), b.first.end());
    });
    QItemSelection sorted;
    sorted.reserve(qsizetype(places.size()));
    for (const auto &place : places)
        sorted.append(parts.at(place.second));
    return sorted;
}

QItemSelection ZelRowRanges::ofRows(const QModelIndexList &rows)
{
    QItemSelection single;
    single.reserve(rows.size());
    for (const QModelIndex &row : rows) {
        if (row.isValid())
            single.append(QItemSelectionRange(row));
    }
    QItemSelection joined;
    QModelIndex first;
    QModelIndex last;
    for (const QItemSelectionRange &range : sorted(single)) {
        const QModelIndex row = range.topLeft();
        if (last.isValid() && row.row() == last.row() + 1 && row.parent() == last.parent()) {
            last = row;
            joined.last() = QItemSelectionRange(first, last);
            continue;
        }
        first = last = row;
        joined.append(range);
    }
    return joined;
}
