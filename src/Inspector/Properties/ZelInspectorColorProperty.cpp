// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorColorProperty.h"

#include "Inspector/Properties/ZelEditorLayout.h"
#include "Observation/ZelObservations.h"
#include "Platform/Binding/ZelBinding.h"
#include "Platform/Runtime/ZelValues.h"
#include "ViewController/ZelView.h"

namespace {

const char g_context = 0;

bool hasNoTarget(const QVariant &value)
{
    return ZelIsMarker(value, ZelNoSelectionMarker) || ZelIsMarker(value, ZelNotApplicableMarker);
}

QVariant isQColor(const QVariant &value)
{
    return value.typeId() == QMetaType::QColor;
}

} // namespace

ZelInspectorColorProperty::ZelInspectorColorProperty(QObject *owner)
    : ZelInspectorProperty(owner)
    , colorList(ZelColorList::colorListNamed(QStringLiteral("System")))
{
}

ZelInspectorColorProperty::~ZelInspectorColorProperty()
{
    uninstall();
}

void ZelInspectorColorProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_popUpButton = new ZelColorPopUpButton(container);
    ZelEditorLayout::setName(m_popUpButton, title());
    ZelEditorLayout::setStretches(m_popUpButton, 100);
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    ZelEditorLayout::layOut(container, m_popUpButton, m_label);
    connect(m_popUpButton, &ZelColorPopUpButton::action, this, [this] { userDidChangeValue(m_popUpButton); });
}

void ZelInspectorColorProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding, &g_context);
    if (m_popUpButton && colorList)
        m_popUpButton->setColorList(colorList);
    if (m_popUpButton && defaultColor.isValid())
        m_popUpButton->setDefaultColor(defaultColor);
    observeForUpdate(enabledKeyPath(), &g_context);
    observeForUpdate(keyPath(), &g_context);
    updateView();
}

void ZelInspectorColorProperty::viewWillUninstall()
{
    ZelInspectorProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_context);
    cancelUpdateView();
    if (m_popUpButton) // nobody would see what the panel edits
        m_popUpButton->cell()->deactivateColorPanel();
}

void ZelInspectorColorProperty::updateView()
{
    if (!m_popUpButton)
        return;
    const QVariant value = reflectedValue();
    m_popUpButton->setEnabled(!hasNoTarget(value) && isEffectivelyEnabled());
    m_popUpButton->setSelectedColor(value);
}

void ZelInspectorColorProperty::userDidChangeValue(QObject *sender)
{
    const ZelColor color = ZelColor::fromVariant(m_popUpButton->selectedColor());
    const QVariant old = reflectedValue();
    const QPointer<ZelInspectorColorProperty> alive(this);
    if (color.isValid()) {
        const QVariant wantsQColor = ZelIsControllerMarker(old) ? combinedReflectedValue(&isQColor) : isQColor(old);
        const bool isPlain = !ZelIsControllerMarker(wantsQColor) && wantsQColor.toBool();
        const QVariant value = isPlain ? QVariant(color.toQColor()) : color.toVariant();
        if (ZelColor::fromVariant(value) != ZelColor::fromVariant(old))
            setReflectedValue(value);
    }
    if (alive)
        ZelInspectorProperty::userDidChangeValue(sender);
}

QWidget *ZelInspectorColorProperty::viewForBaselineAlignment()
{
    view();
    return m_popUpButton;
}
