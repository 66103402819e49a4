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

RowPath pathOf(const QModelIndex &first)
{
    RowPath path{first.row()};
    for (QModelIndex parent = first.parent(); parent.isValid(); parent = parent.parent())
        path.append(parent.row());
    std::reverse(path.begin(), path.end());
    return path;
}

/// The positions of the rows, in the order in which a view shows them.
std::vector<qsizetype> order(const QModelIndexList &rows)
{
    std::vector<std::pair<RowPath, qsizetype>> places;
    places.reserve(size_t(rows.size()));
    for (qsizetype i = 0; i < rows.size(); ++i)
        places.emplace_back(pathOf(rows.at(i)), i);
    const auto isBefore = [](const auto &a, const auto &b) {
        return std::lexicographical_compare(a.first.begin(), a.first.end(), b.first.begin(), b.first.end());
    };
    if (!std::is_sorted(places.begin(), places.end(), isBefore))
        std::sort(places.begin(), places.end(), isBefore);
    std::vector<qsizetype> order;
    order.reserve(places.size());
    for (const auto &place : places)
        order.push_back(place.second);
    return order;
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
        const auto cuts = ancestors.constFind(range.parent());
        if (cuts == ancestors.constEnd()) {
            parts.append(range);
            continue;
        }
        int top = range.top();
        const QModelIndex first = range.topLeft();
        const QModelIndex last = range.bottomRight();
        for (int row = top; row < range.bottom(); ++row) {
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
    QModelIndexList firstRows;
    firstRows.reserve(parts.size());
    for (const QItemSelectionRange &part : parts)
        firstRows.append(part.topLeft());
    QItemSelection sorted;
    sorted.reserve(parts.size());
    for (const qsizetype place : order(firstRows))
        sorted.append(parts.at(place));
    return sorted;
}

QItemSelection ZelRowRanges::ofRows(const QModelIndexList &rows)
{
    QModelIndexList valid = rows;
    valid.removeIf([](const QModelIndex &row) { return !row.isValid(); });
    QItemSelection ranges;
    QModelIndex first;
    QModelIndex last;
    for (const qsizetype place : order(valid)) {
        const QModelIndex &row = valid.at(place);
        if (last.isValid() && row.row() == last.row() + 1 && row.parent() == last.parent()) {
            last = row;
            continue;
        }
        if (first.isValid())
            ranges.append(QItemSelectionRange(first, last));
        first = last = row;
    }
    if (first.isValid())
        ranges.append(QItemSelectionRange(first, last));
    return ranges;
}
