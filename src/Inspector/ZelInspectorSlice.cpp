// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorSlice.h"

#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/private/ZelAssign.h"
#include "Views/ZelSeparator.h"
#include "Views/ZelVerticalStackView.h"

namespace {

ZelColor alternatingColor(const QPalette &palette)
{
    const ZelColor light(ZelColor::CalibratedRGB, {0.871, 0.871, 0.871, 1});
    return ZelThemeColor::isDark(palette) ? ZelColor(ZelThemeColor::adapted(light, palette)) : light;
}

} // namespace

ZelInspectorSlice::ZelInspectorSlice(QObject *owner)
    : ZelInspectorConditionalContainer(owner, Observes::ForLife)
{
}

void ZelInspectorSlice::setUsesAlternatingBackgroundColors(bool uses)
{
    if (ZelAssign(m_usesAlternatingBackgroundColors, uses))
        Q_EMIT usesAlternatingBackgroundColorsChanged();
}

void ZelInspectorSlice::setSections(const QList<ZelInspectorSection *> &sections)
{
    if (m_sections.assign(sections, this))
        Q_EMIT sectionsChanged();
}

ZelVerticalStackView *ZelInspectorSlice::sectionsView() const
{
    return m_sectionsView;
}

void ZelInspectorSlice::loadView()
{
    m_sectionsView = new ZelVerticalStackView;
    setView(m_sectionsView);
    Q_EMIT sectionsViewChanged();
    const QList<ZelInspectorSection *> all = sections();
    QList<QWidget *> subviews;
    for (qsizetype i = 0; i < all.size(); ++i) {
        ZelInspectorSection *section = all.at(i);
        if (i > 0)
            subviews.append(makeSeparator(section));
        if (i % 2 == 1 && m_usesAlternatingBackgroundColors)
            section->view()->setBackgroundColor(alternatingColor(m_sectionsView->palette()));
        subviews.append(section->view());
    }
    m_sectionsView->setSubviews(subviews);
}

/// A separator that is shown and hidden with the section below it.
QWidget *ZelInspectorSlice::makeSeparator(ZelInspectorSection *below)
{
    auto *separator = new ZelSeparator;
    separator->setLevel(2);
    separator->setEdgeInsets({8, 0, 8, 0});
    if (!below->isShown())
        separator->hide();
    connect(below, &ZelInspectorConditionalContainer::shownChanged, separator,
            [separator, below] { separator->setHidden(!below->isShown()); });
    return separator;
}
