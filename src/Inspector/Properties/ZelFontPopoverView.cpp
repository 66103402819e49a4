// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelFontPopoverView.h"

#include "Controls/Fields/ZelNumberFormatter.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/ZelControlSize.h"
#include "Controls/ZelLabel.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Resources/ZelLocalizedString.h"
#include "Text/ZelFontManager.h"

namespace {

constexpr int g_noFont = -1;
constexpr double g_labelWidth = 42;

struct FontRow
{
    const char *title;
    int font = g_noFont; // a ZelFontManager::PlatformFont
    bool isHeading = false;
    bool isIndented = false;
};

using Fonts = ZelFontManager;
constexpr FontRow g_fontRows[] = {
    {QT_TRANSLATE_NOOP("Application", "Custom")},
    {QT_TRANSLATE_NOOP("Application", "System"), g_noFont, true},
    {QT_TRANSLATE_NOOP("Application", "Regular"), Fonts::SystemFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Small"), Fonts::SmallSystemFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Mini"), Fonts::MiniSystemFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Bold System"), g_noFont, true},
    {QT_TRANSLATE_NOOP("Application", "Regular"), Fonts::BoldSystemFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Small"), Fonts::SmallBoldSystemFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Mini"), Fonts::MiniBoldSystemFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Other"), g_noFont, true},
    {QT_TRANSLATE_NOOP("Application", "Control Content"), Fonts::ControlContentFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Label"), Fonts::LabelFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Menu"), Fonts::MenuFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Menu Bar"), Fonts::MenuBarFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Message"), Fonts::MessageFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Palette"), Fonts::PaletteFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Title"), Fonts::TitleBarFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "Tool Tips"), Fonts::ToolTipsFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "User"), Fonts::UserFont, false, true},
    {QT_TRANSLATE_NOOP("Application", "User Fixed Pitch"), Fonts::UserFixedPitchFont, false, true},
};

/// A hidden item for a marker, that is for no single value.
ZelMenuItem *hiddenItem(const QString &title, ZelControllerMarker marker, QObject *parent)
{
    auto *item = new ZelMenuItem(title, {}, QVariant::fromValue(marker), parent);
    item->setHidden(true);
    return item;
}

} // namespace

ZelFontPopoverView::ZelFontPopoverView(QWidget *parent)
    : ZelView(parent)
    , m_font(new ZelPopUpButton(this))
    , m_family(new ZelPopUpButton(this))
    , m_style(new ZelPopUpButton(this))
    , m_size(new ZelTextField(this))
    , m_stepper(new ZelStepper(this))
    , m_done(new ZelPushButton(ZelLocalizedString("Done"), this))
    , m_multipleFamilies(hiddenItem(ZelLocalizedString("Multiple Families"), ZelMultipleValuesMarker, this))
    , m_noFamily(hiddenItem(ZelLocalizedString("No Selection"), ZelNoSelectionMarker, this))
    , m_multipleFaces(hiddenItem(ZelLocalizedString("Multiple Styles"), ZelMultipleValuesMarker, this))
    , m_noFace(hiddenItem(ZelLocalizedString("No Selection"), ZelNoSelectionMarker, this))
{
    setFont(ZelControlSize::smallFont());
    const auto formatter = std::make_shared<ZelNumberFormatter>();
    formatter->setReadsExpressions(true);
    m_size->setFormatter(formatter);
    m_size->setMinValue(1);
    m_size->setIncrement(1);
    m_stepper->setMinValue(1);
    m_stepper->setField(m_size);
    addFonts();
    addFamilies();
    setFontFaces({});
    layOut();
}

void ZelFontPopoverView::addFonts()
{
    int tag = 0;
    for (const FontRow &row : g_fontRows) {
        const QString indent = row.isIndented ? QStringLiteral("    ") : QString();
        const QVariant font = row.font == g_noFont ? QVariant() : QVariant(row.font);
        ZelMenuItem *item = m_font->addItemWithTitle(indent + ZelLocalizedString(row.title), font);
        item->setEnabled(!row.isHeading);
        if (!row.isHeading)
            item->setTag(tag++);
    }
    selectCustom();
}

void ZelFontPopoverView::addFamilies()
{
    m_fontFamilies = ZelFontManager::availableFontFamilies();
    for (const QString &family : std::as_const(m_fontFamilies))
        m_family->addItemWithTitle(family, family);
    m_family->addItem(m_multipleFamilies);
    m_family->addItem(m_noFamily);
    m_family->selectItem(m_noFamily);
}

void ZelFontPopoverView::setFontFaces(const QStringList &faces)
{
    if (faces == m_fontFaces && !m_style->items().isEmpty())
        return;
    m_fontFaces = faces;
    QList<QAction *> items;
    for (const QString &face : faces)
        items.append(new ZelMenuItem(face, {}, face, m_style));
    items << m_multipleFaces << m_noFace;
    m_style->setItems(items);
    m_style->selectItem(m_noFace);
}

void ZelFontPopoverView::selectCustom()
{
    m_font->setSelectedIndex(0);
}

void ZelFontPopoverView::setDetailsEnabled(bool enabled)
{
    for (QWidget *control : {static_cast<QWidget *>(m_family), static_cast<QWidget *>(m_style),
                             static_cast<QWidget *>(m_size), static_cast<QWidget *>(m_stepper)})
        control->setEnabled(enabled);
}

void ZelFontPopoverView::selectFamilyAndFace(const QString &family, const QString &face)
{
    const auto select = [](ZelPopUpButton *button, const QString &name, ZelMenuItem *multiple, ZelMenuItem *none) {
        multiple->setHidden(true);
        QAction *item = name.isEmpty() ? nullptr : button->itemForRepresentedObject(name);
        button->selectItem(item ? item : none);
    };
    select(m_family, family, m_multipleFamilies, m_noFamily);
    select(m_style, face, m_multipleFaces, m_noFace);
}

void ZelFontPopoverView::selectMultiple()
{
    m_multipleFamilies->setHidden(false);
    m_multipleFaces->setHidden(false);
    m_family->selectItem(m_multipleFamilies);
    m_style->selectItem(m_multipleFaces);
}

void ZelFontPopoverView::layOut()
{
    for (QWidget *control : {static_cast<QWidget *>(m_font), static_cast<QWidget *>(m_family),
                             static_cast<QWidget *>(m_style), static_cast<QWidget *>(m_size)})
        ZelEditorLayout::setStretches(control, 1);
    const QHash<QString, QWidget *> views{{QStringLiteral("font"), m_font},       {QStringLiteral("family"), m_family},
                                          {QStringLiteral("style"), m_style},     {QStringLiteral("size"), m_size},
                                          {QStringLiteral("stepper"), m_stepper}, {QStringLiteral("done"), m_done}};
    addConstraintsWithVisualFormat(QStringLiteral("V:|-8-[font]-4-[family]-4-[style]-4-[size]-8-[done]-4-|"), views);
    addConstraintsWithVisualFormat(QStringLiteral("H:[size]-1-[stepper]-8-|"), views);
    addConstraintsWithVisualFormat(QStringLiteral("H:[done]-8-|"), views);
    addConstraint(ZelLayoutConstraint::constraintWithItem(
        m_stepper, ZelLayoutConstraint::CenterY, ZelLayoutConstraint::Equal, m_size, ZelLayoutConstraint::CenterY));
    addRow(ZelLocalizedString("Font"), m_font);
    addRow(ZelLocalizedString("Family"), m_family);
    addRow(ZelLocalizedString("Style"), m_style);
    addRow(ZelLocalizedString("Size"), m_size);
    m_stepper->setAccessibleName(m_size->accessibleName());
}

/// Puts the control's title to its left. The end of the size's row is the stepper's, which is laid out elsewhere.
void ZelFontPopoverView::addRow(const QString &title, QWidget *control)
{
    auto *label = new ZelLabel(title, this);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    control->setAccessibleName(title);
    const QHash<QString, QWidget *> views{{QStringLiteral("label"), label}, {QStringLiteral("control"), control}};
    const QString end = control == m_size ? QString() : QStringLiteral("-8-|");
    addConstraintsWithVisualFormat(QStringLiteral("H:|-2-[label(==width)]-4-[control]") + end, views,
                                   {{QStringLiteral("width"), g_labelWidth}});
    addConstraint(ZelLayoutConstraint::constraintWithItem(
        label, ZelLayoutConstraint::Baseline, ZelLayoutConstraint::Equal, control, ZelLayoutConstraint::Baseline));
}
