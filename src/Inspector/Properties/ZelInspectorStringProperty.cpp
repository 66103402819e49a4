// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorStringProperty.h"

#include "Controls/private/ZelControlSupport.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Values/ZelGeometryType.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelTextForm.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Inspector/Properties/private/ZelTypedText.h"
#include "ViewController/ZelView.h"

#include <QRegularExpression>

ZelInspectorStringProperty::ZelInspectorStringProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

void ZelInspectorStringProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorProperty::configure(configuration);
    placeholder = configuration.localizedStringValueNamed(u"placeholder");
    allowsNilValues = configuration.booleanValueNamed(u"allowsNilValues");
    editable = configuration.booleanValueNamed(u"editable", true);
    editsMultipleValues = configuration.booleanValueOfFileNamed(u"editsMultipleValues");
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
        // Forward, since setReflectedValue writes what the transformer makes of the text.
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
    bindTitle(m_label, ZelValueBinding);
    bindEnabledKeyPathToControl(m_textField);
    observeForUpdate(keyPath());
    updateView();
}

/// What the field shows for a value: its text where Qt has none for the type.
QVariant ZelInspectorStringProperty::shown(const QVariant &value)
{
    const bool hasOwnText = ZelTextForm::has(value.metaType()) || ZelGeometryType::find(value.metaType());
    return hasOwnText && !ZelIsNull(value) ? QVariant(ZelTypedText::of(value)) : value;
}

void ZelInspectorStringProperty::updateView()
{
    if (!m_textField)
        return;
    const QVariant value = reflectedValue();
    const bool isMarker = ZelIsControllerMarker(value);
    m_textField->setEditable(editable && (!isMarker || overwrites(value)) && isWritable() &&
                             ZelTextForm::isReversible(value));
    const bool isNamed = isMarker && !overwrites(value); // otherwise the field names it while nothing is typed
    m_textField->setNullPlaceholder(isNamed ? ZelControlSupport::markerText(value) : placeholder);
    m_textField->setObjectValue(isNamed ? QVariant() : isMarker ? value : shown(value));
}

/// Whether the value stands for several texts that what is typed replaces.
bool ZelInspectorStringProperty::overwrites(const QVariant &value) const
{
    return editsMultipleValues && ZelIsMarker(value, ZelMultipleValuesMarker);
}

/// The value that the field's content means: an empty field stands for no value or for an empty text, and the numbers
/// of a vector or a point for the whole of it.
QVariant ZelInspectorStringProperty::entered(const QVariant &fieldValue) const
{
    if (ZelIsNull(fieldValue) || (fieldValue.typeId() == QMetaType::QString && fieldValue.toString().isEmpty()))
        return allowsNilValues ? QVariant() : QVariant(QStringLiteral(""));
    const auto types = ZelPropertyDomain::ofKeyPath(owner(), keyPath()).types();
    if (types.size() == 1 && ZelGeometryType::find(types.at(0)) && !valueTransformer())
        return ZelTypedText::entered(fieldValue.toString(), types.at(0)).value_or(fieldValue);
    return fieldValue;
}

void ZelInspectorStringProperty::userDidChangeValue(QObject *sender)
{
    const QVariant former = reflectedValue();
    if (!m_textField || (ZelIsControllerMarker(former) && !overwrites(former)))
        return;
    const QVariant value = entered(m_textField->objectValue());
    if (ZelEqual(value, former) || ZelEqual(value, shown(former)))
        return;
    const QPointer<ZelInspectorStringProperty> alive(this);
    if (isOfExpressions() && !selectedKeyPath().isEmpty() && selectedKeyPath().isSingleKey())
        writeExpression(value.toString());
    else
        setReflectedValue(value);
    if (alive)
        ZelInspectorProperty::userDidChangeValue(sender);
}

bool ZelInspectorStringProperty::isOfExpressions() const
{
    const auto types = ZelPropertyDomain::ofKeyPath(owner(), keyPath()).types();
    return types.size() == 1 && types.at(0).id() == QMetaType::QRegularExpression && !valueTransformer();
}

/// Each object's expression keeps its options, which the text does not tell.
void ZelInspectorStringProperty::writeExpression(const QString &pattern)
{
    updateReflectedValues([pattern](const QVariant &old) {
        return QVariant(QRegularExpression(pattern, old.toRegularExpression().patternOptions()));
    });
}

QWidget *ZelInspectorStringProperty::viewForBaselineAlignment()
{
    view();
    return m_textField;
}
