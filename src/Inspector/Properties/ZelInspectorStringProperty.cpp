// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorStringProperty.h"

#include "Inspector/Properties/ZelEditorLayout.h"
#include "Observation/ZelObservations.h"
#include "Platform/Binding/ZelBinding.h"
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
    ZelEditorLayout::setName(m_textField, title());
    m_textField->setLabelStyle(!editable);
    m_textField->setNullPlaceholder(placeholder);
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
    m_textField->setEditable(editable && !ZelIsControllerMarker(value));
    m_textField->setObjectValue(value);
}

void ZelInspectorStringProperty::userDidChangeValue(QObject *sender)
{
    QVariant value = m_textField->objectValue();
    if (ZelIsControllerMarker(value))
        return;
    if (!allowsNilValues && ZelIsNull(value))
        value = QStringLiteral("");
    else if (allowsNilValues && value.typeId() == QMetaType::QString && value.toString().isEmpty())
        value = QVariant();
    if (ZelEqual(value, reflectedValue()))
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
