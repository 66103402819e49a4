// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"

#include "Core/Binding/ZelBinding.h"
#include "Core/Selection/ZelValueSummary.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelValueConversion.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorAttributes.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelView.h"

ZelInspectorBooleanProperty::ZelInspectorBooleanProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

void ZelInspectorBooleanProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorProperty::configure(configuration);
    bits = ZelEditorAttributes::bits(configuration, u"bits");
}

void ZelInspectorBooleanProperty::setBitsValue(const QVariant &value)
{
    bits = ZelIsNumber(value) ? std::optional(unsignedValue(value)) : std::nullopt;
}

QString ZelInspectorBooleanProperty::textForValue(const QVariant &value) const
{
    return ZelIsNull(value) ? ZelInspectorProperty::textForValue(value)
                            : ZelLocalizedString(value.toBool() ? "On" : "Off");
}

ZelValueSummary ZelInspectorBooleanProperty::valueSummary() const
{
    return ZelInspectorProperty::valueSummary().mapped([this](const QVariant &value) {
        const QVariant part = bits ? valueForValueBits(value, *bits) : value;
        return ZelIsNull(part) ? QVariant() : QVariant(part.toBool());
    });
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
    bindTitle(m_checkbox, ZelTitleBinding);
    observeForUpdate(enabledKeyPath());
    observeForUpdate(keyPath());
    updateView();
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
    if (!m_checkbox)
        return;
    const QPointer<ZelInspectorBooleanProperty> alive(this);
    if (m_checkbox->checkState() == Qt::PartiallyChecked)
        m_checkbox->setCheckState(Qt::Checked);
    const bool isOn = m_checkbox->checkState() == Qt::Checked;
    const auto changed = [bits = bits, isOn](const QVariant &old) -> QVariant {
        if (!bits)
            return isOn ? 1 : 0;
        const quint64 value = unsignedValue(old);
        return ZelValueConversion::ofBits(isOn ? value | *bits : value & ~*bits, old.metaType());
    };
    {
        const UpdatingValues updating(this);
        updateReflectedValues(changed);
    }
    if (alive)
        flashUnlessKept(changed);
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
