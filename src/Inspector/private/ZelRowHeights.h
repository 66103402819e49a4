// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QSize>

class ZelInspectorConditionalContainer;

/// The heights of rows that are not made yet: those of rows of the same kind that were measured. Rows are of one kind
/// if they have editors of the same classes, with and without titles. There is one for a scroll view.
class ZelRowHeights : public QObject
{
public:
    using QObject::QObject;

    static ZelRowHeights *of(QObject *sight);

    bool isEmpty() const { return m_sizes.isEmpty(); }
    /// In pixels; a guess for a kind that was never measured.
    int heightOf(const ZelInspectorConditionalContainer *row) const;
    /// Answers whether nothing was known of the row's kind, or the inspector has another width than when it was.
    bool learn(const ZelInspectorConditionalContainer *row, QSize size);

private:
    QHash<size_t, QSize> m_sizes; // by kind
};
