// SPDX-License-Identifier: MIT
#include "Core/Binding/private/ZelBoundProperty.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Undo/private/ZelRecordedWrite.h"
#include "Core/Values/ZelValues.h"

#include <QAbstractButton>
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
    if (m_isObserving && m_info.observedObject)
        ZelRemoveObserver(m_info.observedObject, this, m_info.observedKeyPath, &g_bindingContext);
}

void ZelBoundProperty::start()
{
    const ZelPlaceScope scope(m_object);
    if (!m_accessor)
        throw ZelUndefinedKeyException(QString::fromUtf8(m_object->metaObject()->className()), m_name.string());
    if (const int signal = m_accessor->editSignalIndex(); signal >= 0) {
        m_isReported = m_object->metaObject()->method(signal).name() == "valueEdited";
        listenTo(m_object, signal);
    }
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
        ZelExceptionReporter::passOn(m_object.data(), [this] { update(); });
}

void ZelBoundProperty::heard(int, void **)
{
    if (m_isReported)
        commit();
    else
        ZelExceptionReporter::run(m_object, [this] { commit(); });
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
    const QVariant modelValue = ZelValueForKeyPath(m_info.observedObject.data(), m_info.observedKeyPath);
    const QPointer<ZelBoundProperty> alive(this);
    setEditable(modelValue);
    if (alive)
        m_accessor->write(m_object, shown(modelValue));
}

void ZelBoundProperty::setEditable(const QVariant &modelValue)
{
    const bool setsEditable = m_info.options.value(ZelConditionallySetsEditableBindingOption).toBool();
    const bool hides = m_info.options.value(ZelHidesIfReadOnlyBindingOption).toBool();
    if (!setsEditable && !hides)
        return;
    const bool hasTarget =
        !ZelIsMarker(modelValue, ZelNoSelectionMarker) && !ZelIsMarker(modelValue, ZelNotApplicableMarker);
    const bool isWritable = (!m_transformer || m_transformer->allowsReverseTransformation()) &&
                            ZelPropertyDomain::ofKeyPath(m_info.observedObject, m_info.observedKeyPath).isWritable();
    const QPointer<ZelBoundProperty> alive(this);
    const auto set = [&](ZelKey key, bool value) {
        const ZelPropertyAccessor *accessor = alive ? ZelPropertyAccessor::find(m_object, key) : nullptr;
        if (accessor && accessor->read(m_object).toBool() != value)
            accessor->write(m_object, value);
    };
    static const ZelKey editableKey("editable");
    static const ZelKey hiddenKey("hidden");
    if (setsEditable)
        set(editableKey, hasTarget && isWritable);
    if (hides)
        set(hiddenKey, hasTarget && !isWritable);
}

QVariant ZelBoundProperty::reverseTransformed(const QVariant &value, const ZelValueTransformerPtr &transformer,
                                              const QString &binding)
{
    if (transformer->allowsReverseTransformation())
        return transformer->reverseTransformedValue(value);
    ZelLogWarning(
        QStringLiteral("binding \"%1\" has value transformer, but it doesn't allow reverse transformations in "
                       "-[NSObject(ZelKeyValueBinding) setValue:forBinding:]")
            .arg(binding));
    return value;
}

bool ZelBoundProperty::hasNothingToCommit() const
{
    const auto *button = qobject_cast<const QAbstractButton *>(m_object.data());
    return button && !button->isCheckable();
}

/// Replaces a number that the model cannot hold by the nearest one that it can. Fields have refused such a number
/// before; steppers and sliders stop at the limit.
QVariant ZelBoundProperty::bounded(const QVariant &value) const
{
    if (!ZelIsNumber(value))
        return value;
    return ZelPropertyDomain::ofKeyPath(m_info.observedObject, m_info.observedKeyPath).bounded(value);
}

/// Writes what the user entered to the model, then shows what the model made of it, even if it refused the value.
void ZelBoundProperty::commit()
{
    if (m_isCommitting || !m_object || !m_info.observedObject || hasNothingToCommit())
        return;
    const ZelPlaceScope scope(m_object);
    QVariant value = m_accessor->read(m_object);
    if (ZelIsControllerMarker(value))
        return;
    const QPointer<ZelBoundProperty> alive(this);
    const ZelMemberScope committing(this, m_isCommitting, true);
    const ZelRecordedWrite write(ZelUndoManager::forWidget(qobject_cast<QWidget *>(m_object)));
    ZelFirstException errors;
    errors.run([&] {
        if (const ZelNumberChange *change = ZelNumberChange::of(value)) {
            write.changeNumbers(m_info.observedObject, *change, m_info.observedKeyPath, m_transformer);
            return;
        }
        if (m_transformer)
            value = reverseTransformed(value, m_transformer, m_name.string());
        write.setValueForKeyPath(m_info.observedObject, bounded(value), m_info.observedKeyPath);
    });
    if (alive)
        errors.run([this] { update(); });
    errors.rethrow();
}
