// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Text/ZelAttributedString.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>

class QTextBlock;
class QTextCursor;
class QTextDocument;

/// Reads attributed strings from documents and writes them into documents.
///
/// Fonts, colours, lines, links, images and everything in a block's format that a ZelParagraphStyle holds come back as
/// they were. What a document cannot show, such as an application's own attributes or a positive tail indent, it keeps
/// while it is edited. Of lists, tables and frames a string holds only the text, and it does not hold patterned
/// brushes. In a document of plain paragraphs, positions are those of the string.
///
/// An empty last paragraph has no character: in a document it gets the attributes of the newline before it.
class ZEL_EXPORT ZelTextDocumentCoder
{
public:
    static ZelAttributedString read(const QTextDocument *document);
    /// Reads what is selected; null without a selection.
    static ZelAttributedString readSelection(const QTextCursor &cursor);
    /// Replaces all that is in the document, the history of undo included.
    static void write(const ZelAttributedString &string, QTextDocument *document);
    /// Replaces the selection. As in any insertion, a first and a last paragraph that are not whole take the style of
    /// the paragraph that they become part of.
    static void insert(const ZelAttributedString &string, QTextCursor cursor);

    static ZelAttributedString::Attributes attributes(const QTextCharFormat &format);
    static QTextCharFormat charFormat(const ZelAttributedString::Attributes &attributes);

    static ZelParagraphStyle paragraphStyle(const QTextBlock &block);
    /// The format of a paragraph with that style. The direction counts if the style leaves it open.
    static QTextBlockFormat blockFormat(const ZelParagraphStyle &style,
                                        Qt::LayoutDirection direction = Qt::LeftToRight);
};
