// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorResourceProperty.h"

#include "Controls/Fields/ZelTextField.h"
#include "Core/Binding/ZelBinding.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/ZelView.h"

ZelInspectorResourceProperty::ZelInspectorResourceProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

void ZelInspectorResourceProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorProperty::configure(configuration);
    placeholder = configuration.localizedStringValueNamed(u"placeholder");
    resourcesKeyPath = configuration.keyPathValueNamed(u"resourcesKeyPath");
}

void ZelInspectorResourceProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_comboBox = new ZelComboBox(container);
    m_comboBox->textField()->setValueCheck(
        [editor = QPointer<ZelInspectorResourceProperty>(this)](const QVariant &value) {
            return editor ? editor->refusalOfShown(value) : QString();
        });
    ZelEditorLayout::setName(m_comboBox, title());
    ZelEditorLayout::setStretches(m_comboBox, 100);
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    ZelEditorLayout::layOut(container, m_comboBox, m_label, {2, 1, 2, m_label ? 2.0 : 4.0});
    connect(m_comboBox, &ZelComboBox::action, this, [this] { userDidChangeValue(m_comboBox); });
}

void ZelInspectorResourceProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding);
    bindEnabledKeyPathToControl(m_comboBox);
    if (!m_comboBox || !owner())
        return;
    if (!resourcesKeyPath.isEmpty())
        ZelObservations(this).addBindingWithObject(m_comboBox, ZelContentValuesBinding, owner(), resourcesKeyPath, {},
                                                   &ZelInstalledContext);
    if (keyPath().isEmpty())
        return;
    ZelBindingOptions options{{ZelConditionallySetsEditableBindingOption, true}};
    if (!placeholder.isNull())
        options.insert(ZelNullPlaceholderBindingOption, placeholder);
    if (valueTransformer())
        options.insert(ZelValueTransformerBindingOption, QVariant::fromValue(valueTransformer()));
    ZelObservations(this).addBindingWithObject(m_comboBox, ZelValueBinding, owner(), keyPath(), options,
                                               &ZelInstalledContext);
}

QList<QWidget *> ZelInspectorResourceProperty::controlsNamedByRow()
{
    view();
    return {m_comboBox, m_comboBox->textField()};
}

QString ZelInspectorResourceProperty::textOfValue(const QVariant &modelValue) const
{
    const QString text = ZelInspectorProperty::textOfValue(modelValue);
    return text.isEmpty() ? placeholder : text;
}

bool ZelInspectorResourceProperty::readText(const QString &text, QVariant *modelValue, QString *error) const
{
    if (placeholder.isEmpty() || text.trimmed() != placeholder)
        return ZelInspectorProperty::readText(text, modelValue, error);
    *modelValue = transformedBack(QVariant());
    return true;
}

QWidget *ZelInspectorResourceProperty::viewForBaselineAlignment()
{
    view();
    return m_comboBox;
}
