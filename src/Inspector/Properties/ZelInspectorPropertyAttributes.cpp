// SPDX-License-Identifier: MIT
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/Properties/private/ZelEditorDefault.h"
#include "Inspector/Properties/private/ZelMissingKeyWatch.h"
#include "Inspector/Properties/private/ZelRareAttributes.h"

// The part of the property editor that keeps the attributes of its element.

void ZelInspectorProperty::configure(const ZelInspectorConfiguration &configuration)
{
    setTitle(configuration.localizedStringValueNamed(u"title"));
    setTitleKeyPath(configuration.keyPathValueNamed(u"titleKeyPath"));
    setToolTip(configuration.localizedStringValueNamed(u"toolTip"));
    setWhatsThis(configuration.localizedStringValueNamed(u"whatsThis"));
    setKeyPath(configuration.keyPathValueNamed(u"keyPath"));
    setValueTransformer(configuration.valueTransformerForAttributeNamed(u"valueTransformer"));
    setEnabled(configuration.booleanValueNamed(u"enabled", true));
    setEnabledValueTransformer(configuration.valueTransformerForAttributeNamed(u"enabledValueTransformer"));
    setEnabledKeyPath(configuration.keyPathValueNamed(u"enabledKeyPath"));
    setDisabledReason(configuration.localizedStringValueNamed(u"disabledReason"));
    setActionSelector(configuration.selectorValueNamed(u"actionSelector"));
    setActionName(configuration.localizedStringValueNamed(u"actionName"));
    setReturnAdvances(configuration.booleanValueOfFileNamed(u"returnAdvances", m_returnAdvances));
    if (configuration.hasValueNamed(u"defaultValue") || configuration.hasValueNamed(u"defaultValueKeyPath"))
        editorDefault().configure(configuration, valueTransformer() ? QMetaType() : valueType());
}

const ZelInspectorProperty::Rare &ZelInspectorProperty::rare() const
{
    static const Rare none;
    return m_rare ? *m_rare : none;
}

ZelInspectorProperty::Rare &ZelInspectorProperty::rare()
{
    if (!m_rare)
        m_rare = std::make_unique<Rare>();
    return *m_rare;
}

/// Most attributes are set to what they are.
template<typename Value> bool ZelInspectorProperty::setRare(Value Rare::*member, const Value &value)
{
    if (std::as_const(*this).rare().*member == value)
        return false;
    rare().*member = value;
    return true;
}

const QString &ZelInspectorProperty::titleKeyPath() const
{
    return rare().titleKeyPath;
}

void ZelInspectorProperty::setTitleKeyPath(const QString &keyPath)
{
    if (setObservedKeyPath(titleKeyPath(), keyPath, [&] { rare().titleKeyPath = keyPath; }))
        Q_EMIT titleKeyPathChanged();
}

void ZelInspectorProperty::setKeyPath(const QString &keyPath)
{
    const auto store = [&] {
        m_missingKey.reset();
        m_isKeyKnown = false;
        m_keyPath = keyPath;
    };
    if (setObservedKeyPath(m_keyPath, keyPath, store))
        Q_EMIT keyPathChanged();
}

void ZelInspectorProperty::setEnabled(bool enabled)
{
    if (ZelAssign(m_enabled, enabled))
        Q_EMIT enabledChanged();
}

const QString &ZelInspectorProperty::enabledKeyPath() const
{
    return rare().enabledKeyPath;
}

void ZelInspectorProperty::setEnabledKeyPath(const QString &keyPath)
{
    if (setObservedKeyPath(enabledKeyPath(), keyPath, [&] { rare().enabledKeyPath = keyPath; }))
        Q_EMIT enabledKeyPathChanged();
}

const ZelValueTransformerPtr &ZelInspectorProperty::valueTransformer() const
{
    return rare().valueTransformer;
}

void ZelInspectorProperty::setValueTransformer(const ZelValueTransformerPtr &transformer)
{
    setRare(&Rare::valueTransformer, transformer);
}

const ZelValueTransformerPtr &ZelInspectorProperty::enabledValueTransformer() const
{
    return rare().enabledValueTransformer;
}

void ZelInspectorProperty::setEnabledValueTransformer(const ZelValueTransformerPtr &transformer)
{
    setRare(&Rare::enabledValueTransformer, transformer);
}

const QString &ZelInspectorProperty::disabledReason() const
{
    return rare().disabledReason;
}

void ZelInspectorProperty::setDisabledReason(const QString &reason)
{
    setRare(&Rare::disabledReason, reason);
}

const ZelSelector &ZelInspectorProperty::actionSelector() const
{
    return rare().actionSelector;
}

void ZelInspectorProperty::setActionSelector(const ZelSelector &selector)
{
    if (setRare(&Rare::actionSelector, selector))
        Q_EMIT actionSelectorChanged();
}

const QString &ZelInspectorProperty::actionName() const
{
    return rare().actionName;
}

void ZelInspectorProperty::setActionName(const QString &name)
{
    if (setRare(&Rare::actionName, name))
        Q_EMIT actionNameChanged();
}
