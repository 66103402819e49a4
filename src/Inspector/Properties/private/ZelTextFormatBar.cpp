// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelTextFormatBar.h"

#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/private/ZelTextFormatImages.h"
#include "Resources/ZelLocalizedString.h"

#include <array>

using Property = ZelInspectorAttributedStringProperty;

namespace {

struct SegmentDescription
{
    const char *toolTip;
    const char *image = nullptr;
    uint alignment = 0;
};

constexpr std::array<SegmentDescription, Property::SegmentCount> g_segments{{
    {QT_TRANSLATE_NOOP("Application", "Align Left"), "ZelTextAlignLeftTemplate", ZelParagraphStyle::AlignLeft},
    {QT_TRANSLATE_NOOP("Application", "Align Center"), "ZelTextAlignCenterTemplate", ZelParagraphStyle::AlignCenter},
    {QT_TRANSLATE_NOOP("Application", "Align Right"), "ZelTextAlignRightTemplate", ZelParagraphStyle::AlignRight},
    {QT_TRANSLATE_NOOP("Application", "Align Justified"), "ZelTextAlignJustifiedTemplate",
     ZelParagraphStyle::AlignJustified},
    {QT_TRANSLATE_NOOP("Application", "Align Natural"), "ZelTextAlignNaturalTemplate", ZelParagraphStyle::AlignNatural},
    {QT_TRANSLATE_NOOP("Application", "Text Color")},
    {QT_TRANSLATE_NOOP("Application", "Background Color")},
    {QT_TRANSLATE_NOOP("Application", "More...")},
}};

} // namespace

ZelSegmentedControl *ZelTextFormatBar::make(const QString &accessibleName)
{
    auto *bar = new ZelSegmentedControl;
    bar->setAccessibleName(accessibleName);
    bar->setFocusPolicy(Qt::TabFocus); // a click leaves the focus, and the edit, in the text
    bar->setSelectsAny(true);
    bar->setSegmentCount(Property::SegmentCount);
    for (int segment = 0; segment < Property::SegmentCount; ++segment) {
        const SegmentDescription &description = g_segments.at(segment);
        bar->setSegmentToolTip(segment, ZelLocalizedString(description.toolTip));
        if (description.image)
            bar->setImage(segment, ZelTextFormatImages::alignmentImage(QString::fromLatin1(description.image)));
    }
    bar->setSegmentTitle(Property::MoreSegment, QStringLiteral("..."));
    return bar;
}

uint ZelTextFormatBar::alignmentOfSegment(qsizetype segment)
{
    return g_segments.at(size_t(segment)).alignment;
}

void ZelTextFormatBar::show(ZelSegmentedControl *bar, const QVariant &alignment, const QVariant &textColor,
                            const QVariant &backgroundColor)
{
    const bool isOne = ZelIsNotNull(alignment) && !ZelIsControllerMarker(alignment);
    for (int segment = Property::LeftSegment; segment <= Property::NaturalSegment; ++segment)
        bar->setSegmentSelected(segment, isOne && alignment.toUInt() == alignmentOfSegment(segment));
    bar->setImage(Property::TextColorSegment, ZelTextFormatImages::textColorImage(textColor));
    bar->setImage(Property::BackgroundColorSegment, ZelTextFormatImages::backgroundColorImage(backgroundColor));
}
