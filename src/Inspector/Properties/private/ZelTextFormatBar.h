// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

class ZelSegmentedControl;

/// The bar above a rich text: one segment for each alignment, for the two colours, and for the other values of
/// paragraphs. Its segments are those of ZelInspectorAttributedStringProperty, whose part the bar is.
class ZelTextFormatBar
{
public:
    /// The caller owns the answer.
    static ZelSegmentedControl *make(const QString &accessibleName);
    /// The alignment that a segment up to the last one of an alignment stands for.
    static uint alignmentOfSegment(qsizetype segment);
    /// Shows values of a selection; each may be a marker.
    static void show(ZelSegmentedControl *bar, const QVariant &alignment, const QVariant &textColor,
                     const QVariant &backgroundColor);
};
