// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelGrowingTextView.h"

#include <functional>

/// A text view whose selection can be read and formatted. What is changed is part of the edit: it becomes the value
/// when that is committed.
class ZelInspectorTextView : public ZelGrowingTextView
{
    Q_OBJECT
public:
    using Range = ZelAttributedString::Range;
    using Run = ZelAttributedString::Run;

    explicit ZelInspectorTextView(QWidget *parent = nullptr);

    /// The insertion point is an empty range.
    Range selectedRange() const;
    /// Clipped to the text; a surrogate pair is taken as a whole.
    void setSelectedRange(const Range &range);

    /// The runs of what is selected, in their order. An insertion point is one empty run with the attributes of the
    /// character behind it, at the end of the text of the one before it. None in an empty text.
    QList<Run> selectedRuns() const;
    /// Sets an attribute of what is selected; at an insertion point, of what is typed next.
    void setAttribute(const QString &name, const QVariant &value);
    /// Changes the style of each paragraph that the selection touches, beginning with the one that it has.
    void changeParagraphStyles(const std::function<void(ZelParagraphStyle &)> &change);

Q_SIGNALS:
    /// The selection, or the text in it, is another.
    void selectionDidChange();

private:
    void noteSelection();

    Range m_knownRange;
};
