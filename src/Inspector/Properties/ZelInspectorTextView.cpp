// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorTextView.h"

#include "Core/Values/private/ZelAssign.h"
#include "Text/ZelTextDocumentCoder.h"

#include <QTextBlock>

namespace {

void select(QTextCursor *cursor, const ZelAttributedString::Range &range)
{
    cursor->setPosition(int(range.start));
    cursor->setPosition(int(range.end()), QTextCursor::KeepAnchor);
}

} // namespace

ZelInspectorTextView::ZelInspectorTextView(QWidget *parent)
    : ZelGrowingTextView(parent)
{
    setHeightLimits(19, 500);
    connect(this, &QTextEdit::cursorPositionChanged, this, &ZelInspectorTextView::noteSelection);
    connect(this, &QTextEdit::selectionChanged, this, &ZelInspectorTextView::noteSelection);
    connect(this, &QTextEdit::textChanged, this, [this] {
        m_knownRange = selectedRange();
        Q_EMIT selectionDidChange();
    });
}

/// Qt tells of one change up to three times; reading a large selection once is enough.
void ZelInspectorTextView::noteSelection()
{
    const Range range = selectedRange();
    if (ZelAssign(m_knownRange, range))
        Q_EMIT selectionDidChange();
}

ZelInspectorTextView::Range ZelInspectorTextView::selectedRange() const
{
    const QTextCursor cursor = textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

void ZelInspectorTextView::setSelectedRange(const Range &range)
{
    const qsizetype length = document()->characterCount() - 1;
    const qsizetype start = std::clamp<qsizetype>(range.start, 0, length);
    const qsizetype end = start + std::clamp<qsizetype>(range.length, 0, length - start);
    const bool endsInside = start < end && beforePair(end) != end;
    QTextCursor cursor = textCursor();
    const qsizetype from = beforePair(start);
    select(&cursor, {from, start == end ? 0 : end + (endsInside ? 1 : 0) - from});
    setTextCursor(cursor);
}

QList<ZelInspectorTextView::Run> ZelInspectorTextView::selectedRuns() const
{
    const Range selected = selectedRange();
    const int length = document()->characterCount() - 1;
    if (length == 0)
        return {};
    if (selected.length > 0)
        return attributedString().runsIn(selected);
    QTextCursor cursor(document()); // the whole text is not read for each character that is typed
    const qsizetype last = length - 1;
    select(&cursor, {std::min(selected.start, last), 1});
    return {{selected, ZelTextDocumentCoder::readSelection(cursor).attributesAt(0)}};
}

void ZelInspectorTextView::setAttribute(const QString &name, const QVariant &value)
{
    changeAttribute(name, [&value](const QVariant &) { return value; });
}

void ZelInspectorTextView::changeAttribute(const QString &name, const std::function<QVariant(const QVariant &)> &change)
{
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) {
        ZelAttributedString::Attributes attributes = ZelTextDocumentCoder::attributes(currentCharFormat());
        attributes.insert(name, change(attributes.value(name)));
        // A string of one character brings the attributes into the form that texts store.
        const ZelAttributedString typed(QStringLiteral("x"), attributes);
        setCurrentCharFormat(ZelTextDocumentCoder::charFormat(typed.attributesAt(0)));
        return;
    }
    const qsizetype start = cursor.selectionStart();
    ZelAttributedString string = attributedString().mid(selectedRange());
    const QList<Run> former = string.runs();
    for (const Run &run : former)
        string.setAttribute(name, change(run.attributes.value(name)), run.range);
    cursor.beginEditBlock();
    const QList<Run> runs = string.runs();
    for (const Run &run : runs) {
        select(&cursor, {start + run.range.start, run.range.length});
        cursor.setCharFormat(ZelTextDocumentCoder::charFormat(run.attributes));
    }
    cursor.endEditBlock();
}

void ZelInspectorTextView::changeParagraphStyles(const std::function<void(ZelParagraphStyle &)> &change)
{
    const QTextCursor selection = textCursor();
    const int start = selection.selectionStart();
    const int last = std::max(start, selection.selectionEnd() - 1);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->findBlock(start); block.isValid() && block.position() <= last;
         block = block.next()) {
        ZelParagraphStyle style = ZelTextDocumentCoder::paragraphStyle(block);
        change(style);
        cursor.setPosition(block.position());
        cursor.setBlockFormat(ZelTextDocumentCoder::blockFormat(style, block.textDirection()));
    }
    cursor.endEditBlock();
}
