// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QList>
#include <QMetaType>
#include <QTextOption>

/// The style of a paragraph of an attributed string. Lengths are in points; 0 stands for the default of whatever shows
/// the text.
class ZEL_EXPORT ZelParagraphStyle
{
    Q_GADGET
    Q_PROPERTY(uint alignment MEMBER alignment)
    Q_PROPERTY(double firstLineHeadIndent MEMBER firstLineHeadIndent)
    Q_PROPERTY(double headIndent MEMBER headIndent)
    Q_PROPERTY(double tailIndent MEMBER tailIndent)
    Q_PROPERTY(double defaultTabInterval MEMBER defaultTabInterval)
    Q_PROPERTY(double lineHeightMultiple MEMBER lineHeightMultiple)
    Q_PROPERTY(double maximumLineHeight MEMBER maximumLineHeight)
    Q_PROPERTY(double minimumLineHeight MEMBER minimumLineHeight)
    Q_PROPERTY(double lineSpacing MEMBER lineSpacing)
    Q_PROPERTY(double paragraphSpacing MEMBER paragraphSpacing)
    Q_PROPERTY(double paragraphSpacingBefore MEMBER paragraphSpacingBefore)
    Q_PROPERTY(uint lineBreakMode MEMBER lineBreakMode)
    Q_PROPERTY(float hyphenationFactor MEMBER hyphenationFactor)
    Q_PROPERTY(float tighteningFactorForTruncation MEMBER tighteningFactorForTruncation)
    Q_PROPERTY(int headerLevel MEMBER headerLevel)
    Q_PROPERTY(int baseWritingDirection MEMBER baseWritingDirection)
public:
    /// A natural alignment begins where the paragraph's writing direction does.
    enum Alignment : uint { AlignLeft, AlignRight, AlignCenter, AlignJustified, AlignNatural };
    Q_ENUM(Alignment)
    enum LineBreakMode : uint {
        WordWrapping,
        CharWrapping,
        Clipping,
        TruncatingHead,
        TruncatingTail,
        TruncatingMiddle
    };
    Q_ENUM(LineBreakMode)
    /// A natural direction is that of the text.
    enum WritingDirection { NaturalDirection = -1, LeftToRight, RightToLeft };
    Q_ENUM(WritingDirection)

    uint alignment = AlignNatural;
    double firstLineHeadIndent = 0; ///< of the first line, from the side where lines begin
    double headIndent = 0;          ///< of all other lines, from that side
    double tailIndent = 0;          ///< from where lines begin if positive, else backwards from where they end
    double defaultTabInterval = 0;  ///< behind the last of tabStops
    double lineHeightMultiple = 0;  ///< the natural line height is multiplied by it
    double maximumLineHeight = 0;
    double minimumLineHeight = 0;
    double lineSpacing = 0; ///< between two lines
    double paragraphSpacing = 0;
    double paragraphSpacingBefore = 0;
    uint lineBreakMode = WordWrapping;
    float hyphenationFactor = 0; ///< 0 to 1
    float tighteningFactorForTruncation = 0;
    int headerLevel = 0; ///< 1 to 6; 0 is no heading
    int baseWritingDirection = NaturalDirection;
    QList<QTextOption::Tab> tabStops;

    friend bool operator==(const ZelParagraphStyle &, const ZelParagraphStyle &) = default;
};
Q_DECLARE_METATYPE(ZelParagraphStyle)
