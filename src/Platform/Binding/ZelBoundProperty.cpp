// SPDX-License-Identifier: MIT
#include "Platform/Binding/ZelBoundProperty.h"

#include "Platform/Runtime/ZelAssertions.h"
#include "Platform/Runtime/ZelKeyValueCoding.h"
#include "Platform/Runtime/ZelPropertyAccessor.h"
#include "Platform/Runtime/ZelValues.h"
#include "Platform/Selection/ZelRecordedWrite.h"
#include "Platform/Selection/ZelUndoManager.h"

#include <QScopeGuard>
#include <QWidget>

namespace {

const char g_bindingContext = 0;

ZelValueTransformerPtr transformerOf(const ZelBindingOptions &options)
{
    const auto transformer = options.value(ZelValueTransformerBindingOption).value<ZelValueTransformerPtr>();
    if (transformer)
        return transformer;
    const QString name = options.value(ZelValueTransformerNameBindingOption).toString();
    return name.isEmpty() ? nullptr : ZelAbstractValueTransformer::valueTransformerForName(name);
}

} // namespace

/// Hears the signal by which a control reports an edit; connected by index.
class ZelBoundProperty::EditReceiver : public QObject
{
public:
    EditReceiver(ZelBoundProperty &bound, QObject *control, int signal)
        : m_bound(bound)
    {
        QMetaObject::connect(control, signal, this, QObject::staticMetaObject.methodCount(), Qt::DirectConnection);
    }
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        id = QObject::qt_metacall(call, id, arguments);
        if (id < 0 || call != QMetaObject::InvokeMetaMethod)
            return id;
        m_bound.commit();
        return -1;
    }

private:
    ZelBoundProperty &m_bound;
};

ZelBoundProperty::ZelBoundProperty(QObject *object, ZelKey name, const ZelBindingInfo &info)
    : m_object(object)
    , m_name(name)
    , m_info(info)
    , m_transformer(transformerOf(info.options))
    , m_accessor(ZelPropertyAccessor::find(object, name))
{
}

ZelBoundProperty::~ZelBoundProperty()
{
    *m_isAlive = false;
    if (m_isObserving && m_info.observedObject)
        ZelRemoveObserver(m_info.observedObject, this, m_info.observedKeyPath, &g_bindingContext);
}

void ZelBoundProperty::start()
{
    const ZelPlaceScope scope(m_object);
    if (!m_accessor)
        throw ZelUndefinedKeyException(QString::fromUtf8(m_object->metaObject()->className()), m_name.string());
    if (m_accessor->editSignalIndex() >= 0)
        m_edits = std::make_unique<EditReceiver>(*this, m_object, m_accessor->editSignalIndex());
    const QVariant placeholder = m_info.options.value(ZelNullPlaceholderBindingOption);
    static const ZelKey placeholderKey("nullPlaceholder");
    if (placeholder.isValid() && ZelHasKey(m_object, placeholderKey))
        ZelSetValueForKey(m_object, placeholder, placeholderKey);
    m_isObserving = true;
    ZelAddObserver(m_info.observedObject, this, m_info.observedKeyPath, 0, &g_bindingContext);
    update();
}

void ZelBoundProperty::observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &, const void *)
{
    if (!m_isCommitting)
        update();
}

QVariant ZelBoundProperty::shown(const QVariant &modelValue) const
{
    const QVariant value = m_transformer ? m_transformer->transformedValue(modelValue) : modelValue;
    return ZelIsControllerMarker(value) && !m_accessor->takesMarkers() ? QVariant() : value;
}

void ZelBoundProperty::update()
{
    if (!m_object || !m_info.observedObject)
        return;
    const ZelPlaceScope scope(m_object);
    const QVariant modelValue = ZelValueForKeyPath(m_info.observedObject.data(), m_info.observedKeyPath);
    const std::shared_ptr<bool> isAlive = m_isAlive;
    setEditable(modelValue);
    if (*isAlive)
        m_accessor->write(m_object, shown(modelValue));
}

void ZelBoundProperty::setEditable(const QVariant &modelValue)
{
    if (!m_info.options.value(ZelConditionallySetsEditableBindingOption).toBool())
        return;
    static const ZelKey editableKey("editable");
    const ZelPropertyAccessor *editable = ZelPropertyAccessor::find(m_object, editableKey);
    const bool hasTarget =
        !ZelIsMarker(modelValue, ZelNoSelectionMarker) && !ZelIsMarker(modelValue, ZelNotApplicableMarker);
    if (editable && editable->read(m_object).toBool() != hasTarget)
        editable->write(m_object, hasTarget);
}

/// Writes what the user entered to the model, then takes over what the model made of it.
void ZelBoundProperty::commit()
{
    if (m_isCommitting || !m_object || !m_info.observedObject)
        return;
    const ZelPlaceScope scope(m_object);
    QVariant value = m_accessor->read(m_object);
    if (ZelIsControllerMarker(value))
        return;
    if (m_transformer)
        value = m_transformer->allowsReverseTransformation() ? m_transformer->reverseTransformedValue(value) : value;
    const std::shared_ptr<bool> isAlive = m_isAlive;
    m_isCommitting = true;
    const auto guard = qScopeGuard([&] {
        if (*isAlive)
            m_isCommitting = false;
    });
    const ZelRecordedWrite write(ZelUndoManager::forWidget(qobject_cast<QWidget *>(m_object)));
    write.setValueForKeyPath(m_info.observedObject, value, m_info.observedKeyPath);
    if (*isAlive)
        update();
}
