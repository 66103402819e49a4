// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorColorProperty.h"

#include "Inspector/Properties/ZelEditorLayout.h"
#include "Observation/ZelObservations.h"
#include "Platform/Binding/ZelBinding.h"
#include "Platform/Runtime/ZelPropertyDomain.h"
#include "Platform/Runtime/ZelValues.h"
#include "ViewController/ZelView.h"

namespace {

const char g_context = 0;

bool hasNoTarget(const QVariant &value)
{
    return ZelIsMarker(value, ZelNoSelectionMarker) || ZelIsMarker(value, ZelNotApplicableMarker);
}

/// Whether a colour is a QColor, rather than a ZelColor; what is no colour goes with the others.
QVariant isQColor(const QVariant &value)
{
    return ZelColor::isColor(value) ? QVariant(value.typeId() == QMetaType::QColor)
                                    : QVariant::fromValue(ZelNoSelectionMarker);
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
    m_popUpButton->setEnabled(!hasNoTarget(value) && isWritable() && isEffectivelyEnabled());
    m_popUpButton->setSelectedColor(value);
}

/// Each object's colour stays of its class; an object that has none gets one of the others' class.
void ZelInspectorColorProperty::writeColor(const ZelColor &color)
{
    const QVariant plain = color.toQColor();
    const QVariant whole = color.toVariant();
    const QVariant kind = combinedReflectedValue(&isQColor);
    const bool isMixed = ZelIsMarker(kind, ZelMultipleValuesMarker);
    if (isMixed && !valueTransformer() &&
        ZelKeyPath(keyPathByStripingControllerSelectionPrefix(keyPath())).isSingleKey()) {
        updateReflectedValues(
            [&](const QVariant &old) { return old.typeId() == QMetaType::fromType<ZelColor>().id() ? whole : plain; });
        return;
    }
    const auto wantsZelColors = [this] {
        return ZelPropertyDomain::ofKeyPath(owner(), keyPath()).types().contains(QMetaType::fromType<ZelColor>());
    };
    const bool isPlain = ZelIsControllerMarker(kind) ? !isMixed && !wantsZelColors() : kind.toBool();
    const QVariant &value = isPlain ? plain : whole;
    if (ZelColor::fromVariant(value) != ZelColor::fromVariant(reflectedValue()))
        setReflectedValue(value);
}

void ZelInspectorColorProperty::userDidChangeValue(QObject *sender)
{
    const ZelColor color = ZelColor::fromVariant(m_popUpButton->selectedColor());
    const QPointer<ZelInspectorColorProperty> alive(this);
    if (color.isValid())
        writeColor(color);
    if (alive)
        ZelInspectorProperty::userDidChangeValue(sender);
}

QWidget *ZelInspectorColorProperty::viewForBaselineAlignment()
{
    view();
    return m_popUpButton;
}
