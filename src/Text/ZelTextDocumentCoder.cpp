// SPDX-License-Identifier: MIT
#include "Text/ZelTextDocumentCoder.h"

#include "Text/private/ZelFontLines.h"

#include <QFont>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <cmath>

namespace {

using Attributes = ZelAttributedString::Attributes;

/// The properties in which a document keeps what it does not show.
constexpr int g_otherAttributes = QTextFormat::UserProperty + 0x5a01;
constexpr int g_paragraphStyle = QTextFormat::UserProperty + 0x5a02;
/// The direction for which the style was applied. Text that is typed later may turn the paragraph round.
constexpr int g_appliedDirection = QTextFormat::UserProperty + 0x5a03;

/// Attributes that are one property of a character format, of the same type.
struct SimpleAttribute
{
    QString name;
    int property;
    int type;
};

const QList<SimpleAttribute> &simpleAttributes()
{
    using String = ZelAttributedString;
    static const QList<SimpleAttribute> list{
        {String::UnderlineStyle, QTextFormat::TextUnderlineStyle, QMetaType::Int},
        {String::UnderlineColor, QTextFormat::TextUnderlineColor, QMetaType::QColor},
        {String::Overline, QTextFormat::FontOverline, QMetaType::Bool},
        {String::StrikeOut, QTextFormat::FontStrikeOut, QMetaType::Bool},
        {String::VerticalAlignment, QTextFormat::TextVerticalAlignment, QMetaType::Int},
        {String::Link, QTextFormat::AnchorHref, QMetaType::QString},
        {String::ToolTip, QTextFormat::TextToolTip, QMetaType::QString},
        {String::ImageName, QTextFormat::ImageName, QMetaType::QString},
        {String::ImageWidth, QTextFormat::ImageWidth, QMetaType::Double},
        {String::ImageHeight, QTextFormat::ImageHeight, QMetaType::Double},
        {QStringLiteral("FontSizeAdjustment"), QTextFormat::FontSizeAdjustment, QMetaType::Int},
    };
    return list;
}

QVariant colorOf(const QTextCharFormat &format, int property)
{
    const QBrush brush = format.brushProperty(property);
    return format.hasProperty(property) && brush.style() == Qt::SolidPattern ? QVariant(brush.color()) : QVariant();
}

/// Applies an attribute. Answers false if the document cannot show it and can only keep it.
bool apply(QTextCharFormat *format, const QString &name, const QVariant &value)
{
    if (name == ZelAttributedString::Font && value.typeId() == QMetaType::QFont) {
        format->setFont(value.value<QFont>(), QTextCharFormat::FontPropertiesSpecifiedOnly);
        return true;
    }
    if (name == ZelAttributedString::ForegroundColor && value.typeId() == QMetaType::QColor) {
        format->setForeground(value.value<QColor>());
        return true;
    }
    if (name == ZelAttributedString::BackgroundColor && value.typeId() == QMetaType::QColor) {
        format->setBackground(value.value<QColor>());
        return true;
    }
    for (const SimpleAttribute &attribute : simpleAttributes()) {
        if (attribute.name != name || value.typeId() != attribute.type)
            continue;
        format->setProperty(attribute.property, value);
        if (attribute.property == QTextFormat::AnchorHref)
            format->setAnchor(true);
        if (attribute.property == QTextFormat::ImageName)
            format->setObjectType(QTextFormat::ImageObject);
        return true;
    }
    return false;
}

// Paragraphs

constexpr Qt::Alignment g_alignments[] = {Qt::AlignLeft | Qt::AlignAbsolute, Qt::AlignRight | Qt::AlignAbsolute,
                                          Qt::AlignHCenter, Qt::AlignJustify};

uint alignmentOf(const QTextBlockFormat &format, Qt::LayoutDirection direction)
{
    const Qt::Alignment alignment = format.alignment();
    if (alignment & Qt::AlignHCenter)
        return ZelParagraphStyle::AlignCenter;
    if (alignment & Qt::AlignJustify)
        return ZelParagraphStyle::AlignJustified;
    const bool isRight = alignment & Qt::AlignRight;
    if (alignment & Qt::AlignAbsolute)
        return isRight ? ZelParagraphStyle::AlignRight : ZelParagraphStyle::AlignLeft;
    if (!isRight)
        return ZelParagraphStyle::AlignNatural;
    return direction == Qt::RightToLeft ? ZelParagraphStyle::AlignLeft : ZelParagraphStyle::AlignRight;
}

/// Applies the style's line height; a block can have only one of several kinds.
void applyLineHeight(QTextBlockFormat *format, const ZelParagraphStyle &style)
{
    const auto usable = [](double value) { return std::isfinite(value) ? value : 0.0; };
    const double least = usable(style.minimumLineHeight);
    if (usable(style.lineHeightMultiple) > 0)
        format->setLineHeight(100 * style.lineHeightMultiple, QTextBlockFormat::ProportionalHeight);
    else if (least > 0 && least == style.maximumLineHeight)
        format->setLineHeight(least, QTextBlockFormat::FixedHeight);
    else if (least > 0)
        format->setLineHeight(least, QTextBlockFormat::MinimumHeight);
    else if (usable(style.lineSpacing) > 0)
        format->setLineHeight(style.lineSpacing, QTextBlockFormat::LineDistanceHeight);
}

void readLineHeight(const QTextBlockFormat &format, ZelParagraphStyle *style)
{
    const double height = format.lineHeight();
    switch (format.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
        style->lineHeightMultiple = height / 100;
        break;
    case QTextBlockFormat::FixedHeight:
        style->minimumLineHeight = style->maximumLineHeight = height;
        break;
    case QTextBlockFormat::MinimumHeight:
        style->minimumLineHeight = height;
        break;
    case QTextBlockFormat::LineDistanceHeight:
        style->lineSpacing = height;
        break;
    default:
        break;
    }
}

/// The style that the block shows, whatever it keeps besides.
ZelParagraphStyle shownStyle(const QTextBlockFormat &format, Qt::LayoutDirection direction, double indentWidth)
{
    const bool rightToLeft = direction == Qt::RightToLeft;
    ZelParagraphStyle style;
    style.alignment = alignmentOf(format, direction);
    style.headIndent =
        (rightToLeft ? format.rightMargin() : format.leftMargin()) + std::max(0, format.indent()) * indentWidth;
    style.firstLineHeadIndent = style.headIndent + format.textIndent();
    const double end = rightToLeft ? format.leftMargin() : format.rightMargin();
    style.tailIndent = end == 0 ? 0 : -end;
    readLineHeight(format, &style);
    style.paragraphSpacing = format.bottomMargin();
    style.paragraphSpacingBefore = format.topMargin();
    style.lineBreakMode =
        format.nonBreakableLines() ? ZelParagraphStyle::Clipping : uint(ZelParagraphStyle::WordWrapping);
    style.headerLevel = format.headingLevel();
    if (format.layoutDirection() != Qt::LayoutDirectionAuto && format.hasProperty(QTextFormat::LayoutDirection))
        style.baseWritingDirection = format.layoutDirection() == Qt::RightToLeft ? ZelParagraphStyle::RightToLeft
                                                                                 : ZelParagraphStyle::LeftToRight;
    style.tabStops = format.tabPositions();
    return style;
}

/// Answers the shown style, but with the stored fields wherever the document has not changed what is shown: the stored
/// style may hold more.
ZelParagraphStyle combined(const ZelParagraphStyle &stored, const ZelParagraphStyle &asShown,
                           const ZelParagraphStyle &shown)
{
    ZelParagraphStyle result = stored;
    const auto take = [&](auto... members) {
        if ((... && (asShown.*members == shown.*members)))
            return;
        ((result.*members = shown.*members), ...);
    };
    using Style = ZelParagraphStyle;
    take(&Style::alignment);
    take(&Style::firstLineHeadIndent, &Style::headIndent);
    take(&Style::tailIndent);
    take(&Style::lineHeightMultiple, &Style::maximumLineHeight, &Style::minimumLineHeight, &Style::lineSpacing);
    take(&Style::paragraphSpacing);
    take(&Style::paragraphSpacingBefore);
    take(&Style::lineBreakMode);
    take(&Style::headerLevel);
    take(&Style::baseWritingDirection);
    take(&Style::tabStops);
    return result;
}

/// The block's style as an attribute; invalid if it is the default style and none is stored with the block.
QVariant styleAttribute(const QTextBlock &block)
{
    const ZelParagraphStyle style = ZelTextDocumentCoder::paragraphStyle(block);
    const bool says = block.blockFormat().hasProperty(g_paragraphStyle) || style != ZelParagraphStyle();
    return says ? QVariant::fromValue(style) : QVariant();
}

// Reading

ZelAttributedString readRange(const QTextDocument *document, int from, int to)
{
    ZelAttributedString result(QStringLiteral(""));
    const auto append = [&](const QString &text, const QTextCharFormat &format, const QVariant &style) {
        Attributes attributes = ZelTextDocumentCoder::attributes(format);
        attributes.insert(ZelAttributedString::ParagraphStyle, style);
        result.append({text, attributes});
    };
    for (QTextBlock block = document->findBlock(from); block.isValid() && block.position() < to; block = block.next()) {
        const QVariant style = styleAttribute(block);
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const int start = std::max(from, fragment.position());
            const int end = std::min(to, fragment.position() + fragment.length());
            if (start < end)
                append(fragment.text().mid(start - fragment.position(), end - start), fragment.charFormat(), style);
        }
        // The newline has the format with which the next block begins.
        const int newline = block.position() + block.length() - 1;
        if (newline >= from && newline < to && block.next().isValid())
            append(QStringLiteral("\n"), block.next().charFormat(), style);
    }
    return result;
}

// Writing

void insertText(const ZelAttributedString &string, QTextCursor *cursor)
{
    const QTextBlockFormat blockFormat = cursor->blockFormat();
    const QList<ZelAttributedString::Run> runs = string.runs();
    for (const ZelAttributedString::Run &run : runs) {
        const QTextCharFormat format = ZelTextDocumentCoder::charFormat(run.attributes);
        const QString text = string.text().mid(run.range.start, run.range.length);
        qsizetype start = 0;
        for (qsizetype newline = text.indexOf(u'\n'); newline >= 0; newline = text.indexOf(u'\n', start)) {
            cursor->insertText(text.mid(start, newline - start), format);
            cursor->insertBlock(blockFormat, format);
            start = newline + 1;
        }
        cursor->insertText(text.mid(start), format);
    }
}

/// Gives paragraphs the style that they have in the inserted string, if they consist of inserted text only.
void applyStyles(const ZelAttributedString &string, QTextDocument *document, int from, int to)
{
    for (QTextBlock block = document->findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (block.position() < from || block.position() + block.length() - 1 > to)
            continue;
        const QVariant style = string.attributeAt(ZelAttributedString::ParagraphStyle, block.position() - from);
        QTextBlockFormat format;
        if (style.isValid())
            format = ZelTextDocumentCoder::blockFormat(style.value<ZelParagraphStyle>(), block.textDirection());
        if (format != block.blockFormat())
            QTextCursor(block).setBlockFormat(format);
    }
}

} // namespace

ZelAttributedString::Attributes ZelTextDocumentCoder::attributes(const QTextCharFormat &format)
{
    Attributes result;
    for (const SimpleAttribute &attribute : simpleAttributes()) {
        const QVariant value = format.property(attribute.property);
        if (value.typeId() == attribute.type)
            result.insert(attribute.name, value);
    }
    QFont font = format.font();
    font.setResolveMask(font.resolveMask() & ~ZelFontLines);
    if (font.resolveMask() != 0)
        result.insert(ZelAttributedString::Font, font);
    result.insert(ZelAttributedString::ForegroundColor, colorOf(format, QTextFormat::ForegroundBrush));
    result.insert(ZelAttributedString::BackgroundColor, colorOf(format, QTextFormat::BackgroundBrush));
    const QVariantMap others = format.property(g_otherAttributes).toMap();
    for (auto it = others.begin(); it != others.end(); ++it) {
        if (!result.value(it.key()).isValid())
            result.insert(it.key(), it.value());
    }
    return result;
}

QTextCharFormat ZelTextDocumentCoder::charFormat(const ZelAttributedString::Attributes &attributes)
{
    QTextCharFormat format;
    QVariantMap others;
    for (auto it = attributes.begin(); it != attributes.end(); ++it) {
        if (it.key() != ZelAttributedString::ParagraphStyle && !apply(&format, it.key(), it.value()))
            others.insert(it.key(), it.value());
    }
    if (!others.isEmpty())
        format.setProperty(g_otherAttributes, others);
    return format;
}

ZelParagraphStyle ZelTextDocumentCoder::paragraphStyle(const QTextBlock &block)
{
    const QTextBlockFormat format = block.blockFormat();
    const QVariant applied = format.property(g_appliedDirection);
    const auto direction = applied.isValid() ? Qt::LayoutDirection(applied.toInt()) : block.textDirection();
    const QTextDocument *document = block.document();
    const ZelParagraphStyle shown = shownStyle(format, direction, document ? document->indentWidth() : 0);
    if (!format.hasProperty(g_paragraphStyle))
        return shown;
    const auto stored = format.property(g_paragraphStyle).value<ZelParagraphStyle>();
    return combined(stored, shownStyle(blockFormat(stored, direction), direction, 0), shown);
}

QTextBlockFormat ZelTextDocumentCoder::blockFormat(const ZelParagraphStyle &style, Qt::LayoutDirection direction)
{
    QTextBlockFormat format;
    if (style.baseWritingDirection == ZelParagraphStyle::LeftToRight)
        format.setLayoutDirection(direction = Qt::LeftToRight);
    else if (style.baseWritingDirection == ZelParagraphStyle::RightToLeft)
        format.setLayoutDirection(direction = Qt::RightToLeft);
    if (style.alignment < std::size(g_alignments))
        format.setAlignment(g_alignments[style.alignment]);
    const auto set = [&](void (QTextBlockFormat::*setter)(qreal), double value) {
        if (value != 0 && std::isfinite(value))
            (format.*setter)(value);
    };
    const bool rightToLeft = direction == Qt::RightToLeft;
    set(rightToLeft ? &QTextBlockFormat::setRightMargin : &QTextBlockFormat::setLeftMargin, style.headIndent);
    set(rightToLeft ? &QTextBlockFormat::setLeftMargin : &QTextBlockFormat::setRightMargin,
        std::max(0.0, -style.tailIndent));
    set(&QTextBlockFormat::setTextIndent, style.firstLineHeadIndent - style.headIndent);
    set(&QTextBlockFormat::setBottomMargin, style.paragraphSpacing);
    set(&QTextBlockFormat::setTopMargin, style.paragraphSpacingBefore);
    applyLineHeight(&format, style);
    if (style.lineBreakMode >= ZelParagraphStyle::Clipping)
        format.setNonBreakableLines(true);
    if (style.headerLevel > 0)
        format.setHeadingLevel(style.headerLevel);
    if (!style.tabStops.isEmpty())
        format.setTabPositions(style.tabStops);
    format.setProperty(g_paragraphStyle, QVariant::fromValue(style));
    format.setProperty(g_appliedDirection, int(direction));
    return format;
}

ZelAttributedString ZelTextDocumentCoder::read(const QTextDocument *document)
{
    return readRange(document, 0, document->characterCount() - 1);
}

ZelAttributedString ZelTextDocumentCoder::readSelection(const QTextCursor &cursor)
{
    if (!cursor.hasSelection())
        return {};
    return readRange(cursor.document(), cursor.selectionStart(), cursor.selectionEnd());
}

void ZelTextDocumentCoder::insert(const ZelAttributedString &string, QTextCursor cursor)
{
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    const int from = cursor.position();
    insertText(string, &cursor);
    if (!string.isEmpty())
        applyStyles(string, cursor.document(), from, cursor.position());
    cursor.endEditBlock();
}

void ZelTextDocumentCoder::write(const ZelAttributedString &string, QTextDocument *document)
{
    const bool keepsHistory = document->isUndoRedoEnabled();
    document->setUndoRedoEnabled(false);
    document->clear();
    QTextCursor cursor(document);
    cursor.setBlockCharFormat(charFormat(string.attributesAt(0)));
    insert(string, cursor);
    document->setUndoRedoEnabled(keepsHistory);
}
