// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Text/ZelParagraphStyle.h"

#include <QDebug>
#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>

/// A text with attributes, such as fonts and colours, over ranges of it: the value of a rich-text property.
///
/// Copies share their content until one is changed. As a QVariant it converts to QString and back. An unset string is
/// null and, as with QString, not the same as an empty one; both can be used in every operation.
///
/// Positions and lengths count UTF-16 code units. Ranges are clipped to the text; a range that would split a surrogate
/// pair takes in the whole pair. A paragraph ends with a newline, which belongs to it; other paragraph separators and a
/// carriage return (with or without a newline) become newlines. A last paragraph without any character cannot have
/// attributes of its own.
class ZEL_EXPORT ZelAttributedString
{
public:
    using Attributes = QMap<QString, QVariant>;
    struct Range
    {
        qsizetype start = 0;
        qsizetype length = 0;
        qsizetype end() const { return start + length; }
        friend bool operator==(const Range &, const Range &) = default;
    };
    struct Run
    {
        Range range;
        Attributes attributes;
    };

    // Names of attributes. An application may use others, which a document keeps without showing them.
    static const QString Font;              ///< QFont; what the font leaves open is up to whoever shows the text
    static const QString ForegroundColor;   ///< QColor
    static const QString BackgroundColor;   ///< QColor
    static const QString UnderlineStyle;    ///< QTextCharFormat::UnderlineStyle
    static const QString UnderlineColor;    ///< QColor
    static const QString Overline;          ///< bool
    static const QString StrikeOut;         ///< bool
    static const QString VerticalAlignment; ///< QTextCharFormat::VerticalAlignment
    static const QString Link;              ///< QString, an URL
    static const QString ToolTip;           ///< QString
    static const QString ImageName;         ///< QString; the character itself is an object replacement character
    static const QString ImageWidth;        ///< double
    static const QString ImageHeight;       ///< double
    static const QString ParagraphStyle;    ///< ZelParagraphStyle; a paragraph has that of its first character

    ZelAttributedString() = default;
    /// Null for a null text.
    ZelAttributedString(const QString &text, const Attributes &attributes = {});

    bool isNull() const { return m_text.isNull(); }
    bool isEmpty() const { return m_text.isEmpty(); }
    qsizetype length() const { return m_text.size(); }
    const QString &text() const { return m_text; }

    /// The attributes of a character; at the end of the text, those of the last one. There are none outside of the
    /// text.
    Attributes attributesAt(qsizetype position) const;
    QVariant attributeAt(const QString &name, qsizetype position) const { return attributesAt(position).value(name); }
    /// The longest ranges with equal attributes, in their order; together they are the whole text.
    QList<Run> runs() const;
    /// The runs in a range, clipped to it; none for an empty range.
    QList<Run> runsIn(const Range &range) const;

    /// Sets an attribute; an invalid value removes it, and so does one that means "none" for an underline, overline,
    /// strike-out or vertical alignment. A ZelColor becomes a QColor. Lines under, over and through the text are no
    /// part of the font attribute: those of a font are set as attributes of their own.
    void setAttribute(const QString &name, const QVariant &value, const Range &range);
    /// Sets these attributes; others stay.
    void addAttributes(const Attributes &attributes, const Range &range);

    /// The paragraphs that a range touches; for an empty range the one that it is in.
    Range paragraphRange(const Range &range) const;
    /// The style of the paragraph at a position; the default style if it has none.
    ZelParagraphStyle paragraphStyleAt(qsizetype position) const;
    /// The styles of all paragraphs that the range touches, in their order.
    QList<ZelParagraphStyle> paragraphStyles(const Range &range) const;
    /// Sets the style of all paragraphs that the range touches.
    void setParagraphStyle(const ZelParagraphStyle &style, const Range &range);
    /// Changes the style of each paragraph that the range touches; the function gets the one that it has. A paragraph
    /// whose style is not changed gets no style attribute unless it had one.
    void changeParagraphStyles(const std::function<void(ZelParagraphStyle &)> &change, const Range &range);

    ZelAttributedString mid(const Range &range) const;
    void replace(const Range &range, const ZelAttributedString &string);
    void append(const ZelAttributedString &string);

    /// The value as an attributed string; a text becomes one without attributes, and anything else a null one.
    static ZelAttributedString fromVariant(const QVariant &value);
    /// The string as a value; an invalid QVariant for a null one.
    QVariant toVariant() const { return isNull() ? QVariant() : QVariant::fromValue(*this); }

    /// The same text with the same attributes. Null differs from empty.
    friend ZEL_EXPORT bool operator==(const ZelAttributedString &a, const ZelAttributedString &b);
    friend ZEL_EXPORT QDebug operator<<(QDebug debug, const ZelAttributedString &string);

private:
    /// A stretch of equal attributes; the stretches follow each other.
    struct Stretch
    {
        qsizetype length = 0;
        Attributes attributes;
    };
    Range clipped(const Range &range) const;
    QList<Run> paragraphPieces(const Range &range) const;
    qsizetype splitAt(qsizetype position);
    void mergeStretches();

    QString m_text;
    QList<Stretch> m_stretches; // neighbours differ, none is empty, together they are as long as the text
};
Q_DECLARE_METATYPE(ZelAttributedString)
