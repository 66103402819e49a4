// SPDX-License-Identifier: MIT
#pragma once

#include <QItemSelection>

/// Ranges of rows in the order in which a view shows them.
namespace ZelRowRanges {

/// The valid ranges of a selection, cut where others lie below one of their rows.
QItemSelection sorted(const QItemSelection &selection);
/// The rows of these indexes; neighbours are one range. Invalid indexes are passed over.
QItemSelection ofRows(const QModelIndexList &rows);

} // namespace ZelRowRanges
