// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorStringProperty.h"

#include "Inspector/Properties/ZelEditorLayout.h"
#include "Observation/ZelObservations.h"
#include "Platform/Binding/ZelBinding.h"
#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Runtime/ZelValues.h"
#include "ViewController/ZelView.h"

namespace {
const char g_context = 0;
}

ZelInspectorStringProperty::ZelInspectorStringProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

ZelInspectorStringProperty::~ZelInspectorStringProperty()
{
    uninstall();
}

void ZelInspectorStringProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_textField = new ZelGrowingTextField(container);
    m_textField->setValueCheck([editor = QPointer<ZelInspectorStringProperty>(this)](const QVariant &value) {
        if (!editor)
            return QString();
        const ZelValueTransformerPtr &transformer = editor->valueTransformer();
        const QVariant text = editor->entered(value);
        return editor->refusalOf(transformer ? transformer->transformedValue(text) : text);
    });
    ZelEditorLayout::setName(m_textField, title());
    m_textField->setLabelStyle(!editable);
    ZelEditorLayout::setStretches(m_textField, 1);
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    ZelEditorLayout::layOut(container, m_textField, m_label);
    connect(m_textField, &ZelGrowingTextField::action, this, [this] { userDidChangeValue(m_textField); });
}

void ZelInspectorStringProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding, &g_context);
    bindEnabledKeyPathToControl(m_textField);
    observeForUpdate(keyPath(), &g_context);
    updateView();
}

void ZelInspectorStringProperty::viewWillUninstall()
{
    ZelInspectorProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_context);
    cancelUpdateView();
}

void ZelInspectorStringProperty::updateView()
{
    if (!m_textField)
        return;
    const QVariant value = reflectedValue();
    const bool isMarker = ZelIsControllerMarker(value);
    m_textField->setEditable(editable && !isMarker && isWritable());
    m_textField->setNullPlaceholder(isMarker ? ZelControlSupport::markerText(value) : placeholder);
    m_textField->setObjectValue(isMarker ? QVariant() : value);
}

/// What the value of the field means: no text is none or the empty one.
QVariant ZelInspectorStringProperty::entered(const QVariant &fieldValue) const
{
    if (ZelIsNull(fieldValue) || (fieldValue.typeId() == QMetaType::QString && fieldValue.toString().isEmpty()))
        return allowsNilValues ? QVariant() : QVariant(QStringLiteral(""));
    return fieldValue;
}

void ZelInspectorStringProperty::userDidChangeValue(QObject *sender)
{
    const QVariant former = reflectedValue();
    if (ZelIsControllerMarker(former))
        return;
    const QVariant value = entered(m_textField->objectValue());
    if (ZelEqual(value, former))
        return;
    const QPointer<ZelInspectorStringProperty> alive(this);
    setReflectedValue(value);
    if (alive)
        ZelInspectorProperty::userDidChangeValue(sender);
}

QWidget *ZelInspectorStringProperty::viewForBaselineAlignment()
{
    view();
    return m_textField;
}
