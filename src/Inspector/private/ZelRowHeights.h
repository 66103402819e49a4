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
    bool learn(ZelInspectorConditionalContainer *row, QSize size);
    /// Notes the kind in the row. A row does so when it gets its editors: to look for their kinds when the panel is
    /// shown would fetch all editors of all rows from memory. Changes of titles count when the height is learned.
    static void noteKind(ZelInspectorConditionalContainer *row);

private:
    QHash<quint32, QSize> m_sizes; // by kind
};
