// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"

#include "Inspector/Properties/ZelEditorLayout.h"
#include "Observation/ZelObservations.h"
#include "Platform/Binding/ZelBinding.h"
#include "Platform/Runtime/ZelValueConversion.h"
#include "Platform/Runtime/ZelValues.h"
#include "ViewController/ZelView.h"

namespace {
const char g_context = 0;
}

ZelInspectorBooleanProperty::ZelInspectorBooleanProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

ZelInspectorBooleanProperty::~ZelInspectorBooleanProperty()
{
    uninstall();
}

void ZelInspectorBooleanProperty::setBitsValue(const QVariant &value)
{
    bits = ZelIsNumber(value) ? std::optional(unsignedValue(value)) : std::nullopt;
}

void ZelInspectorBooleanProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_checkbox = new ZelCheckBox(title(), container);
    ZelEditorLayout::setStretches(m_checkbox);
    ZelEditorLayout::layOut(container, m_checkbox, nullptr, {2, 3, 0, 3});
    connect(m_checkbox, &ZelCheckBox::action, this, [this] { userDidChangeValue(m_checkbox); });
}

void ZelInspectorBooleanProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_checkbox, ZelTitleBinding, &g_context);
    observeForUpdate(enabledKeyPath(), &g_context);
    observeForUpdate(keyPath(), &g_context);
    updateView();
}

void ZelInspectorBooleanProperty::viewWillUninstall()
{
    ZelInspectorProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_context);
    cancelUpdateView();
}

void ZelInspectorBooleanProperty::updateView()
{
    if (isUpdatingValues() || !m_checkbox)
        return;
    const QVariant value =
        bits ? combinedReflectedValue([this](const QVariant &v) { return valueForValueBits(v, *bits); })
             : reflectedValue();
    const bool isMixed = ZelIsMarker(value, ZelMultipleValuesMarker);
    const bool hasValue = isMixed || (!ZelIsNull(value) && !ZelIsControllerMarker(value));
    m_checkbox->setObjectValue(isMixed ? value : QVariant(hasValue && value.toBool()));
    m_checkbox->setEnabled(hasValue && isWritable() && isEffectivelyEnabled());
}

void ZelInspectorBooleanProperty::userDidChangeValue(QObject *sender)
{
    const QPointer<ZelInspectorBooleanProperty> alive(this);
    if (m_checkbox->checkState() == Qt::PartiallyChecked)
        m_checkbox->setCheckState(Qt::Checked);
    const bool isOn = m_checkbox->checkState() == Qt::Checked;
    {
        const UpdatingValues updating(this);
        updateReflectedValues([bits = bits, isOn](const QVariant &old) -> QVariant {
            if (!bits)
                return isOn ? 1 : 0;
            const quint64 value = unsignedValue(old);
            return ZelValueConversion::ofBits(isOn ? value | *bits : value & ~*bits, old.metaType());
        });
    }
    if (alive)
        ZelInspectorProperty::userDidChangeValue(sender);
}

QWidget *ZelInspectorBooleanProperty::viewForBaselineAlignment()
{
    view();
    return m_checkbox;
}

bool ZelInspectorBooleanProperty::canTileIntoColumnsWithWidth(double width)
{
    view();
    return m_checkbox && width * 0.5 - 4 > m_checkbox->sizeHint().width();
}
