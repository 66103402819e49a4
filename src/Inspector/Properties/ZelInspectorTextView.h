// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelGrowingTextView.h"
#include "Core/ZelExport.h"

#include <functional>

/// A text view whose selection can be read and formatted. Changes are part of the edit and become the value when it is
/// committed.
class ZEL_EXPORT ZelInspectorTextView : public ZelGrowingTextView
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

    /// The runs of what is selected, in their order. An insertion point gives one empty run with the attributes of the
    /// character behind it, or before it at the end of the text. An empty text has no runs.
    QList<Run> selectedRuns() const;
    /// Sets an attribute of what is selected; at an insertion point, of what is typed next.
    void setAttribute(const QString &name, const QVariant &value);
    /// Gives each run of what is selected what `change` makes of its own attribute, which may be absent.
    void changeAttribute(const QString &name, const std::function<QVariant(const QVariant &)> &change);
    /// Calls `change` with the style of each paragraph that the selection touches, and gives the paragraph what that
    /// makes of it.
    void changeParagraphStyles(const std::function<void(ZelParagraphStyle &)> &change);

Q_SIGNALS:
    /// The selection or the text has changed.
    void selectionDidChange();

private:
    void noteSelection();

    Range m_knownRange;
};
