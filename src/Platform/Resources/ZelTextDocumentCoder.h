// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/ZelAttributedString.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>

class QTextBlock;
class QTextCursor;
class QTextDocument;

/// Attributed strings from documents and into them.
///
/// Fonts, colours, lines, links, images and everything in a block's format that a ZelParagraphStyle holds come back as
/// they were. What a document cannot show, such as an application's own attributes or a positive tail indent, it keeps
/// while it is edited. A string does not hold lists, tables, frames and patterned brushes: their text is left. In a
/// document of plain paragraphs, positions are those of the string.
///
/// An empty last paragraph has no character: in a document it gets the attributes of the newline before it.
class ZelTextDocumentCoder
{
public:
    static ZelAttributedString read(const QTextDocument *document);
    /// What is selected; null without a selection.
    static ZelAttributedString readSelection(const QTextCursor &cursor);
    /// Replaces all that is in the document, the history of undo included.
    static void write(const ZelAttributedString &string, QTextDocument *document);
    /// Replaces the selection. As in any insertion, a first and a last paragraph that are not whole take the style of
    /// the paragraph that they become part of.
    static void insert(const ZelAttributedString &string, QTextCursor cursor);

    static ZelAttributedString::Attributes attributes(const QTextCharFormat &format);
    static QTextCharFormat charFormat(const ZelAttributedString::Attributes &attributes);

    static ZelParagraphStyle paragraphStyle(const QTextBlock &block);
    /// The direction is that in which the paragraph's text is written, where the style leaves it open.
    static QTextBlockFormat blockFormat(const ZelParagraphStyle &style,
                                        Qt::LayoutDirection direction = Qt::LeftToRight);
};
