// SPDX-License-Identifier: MIT
#include "Platform/Binding/ZelBoundProperty.h"

#include "Platform/Runtime/ZelAssertions.h"
#include "Platform/Runtime/ZelFirstException.h"
#include "Platform/Runtime/ZelKeyValueCoding.h"
#include "Platform/Runtime/ZelPropertyAccessor.h"
#include "Platform/Runtime/ZelPropertyDomain.h"
#include "Platform/Runtime/ZelValues.h"
#include "Platform/Selection/ZelRecordedWrite.h"
#include "Platform/Selection/ZelUndoManager.h"

#include <QAbstractButton>
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
        , m_isReported(control->metaObject()->method(signal).name() == "valueEdited")
    {
        QMetaObject::connect(control, signal, this, QObject::staticMetaObject.methodCount(), Qt::DirectConnection);
    }
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        id = QObject::qt_metacall(call, id, arguments);
        if (id < 0 || call != QMetaObject::InvokeMetaMethod)
            return id;
        if (m_isReported)
            m_bound.commit();
        else
            ZelExceptionReporter::run(m_bound.m_object, [this] { m_bound.commit(); });
        return -1;
    }

private:
    ZelBoundProperty &m_bound;
    bool m_isReported; // by a control of the library's, which takes care of exceptions
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
        ZelExceptionReporter::passOn(m_object.data(), [this] { update(); });
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
    const std::shared_ptr<bool> isAlive = m_isAlive;
    setEditable(modelValue);
    if (*isAlive)
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
    const std::shared_ptr<bool> isAlive = m_isAlive;
    const auto set = [&](ZelKey key, bool value) {
        const ZelPropertyAccessor *accessor = *isAlive ? ZelPropertyAccessor::find(m_object, key) : nullptr;
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

/// A number that the model cannot hold becomes the nearest one that it can: fields have refused it before, and what
/// steps or slides stops there.
QVariant ZelBoundProperty::bounded(const QVariant &value) const
{
    if (!ZelIsNumber(value))
        return value;
    const auto domain = ZelPropertyDomain::ofKeyPath(m_info.observedObject, m_info.observedKeyPath);
    return domain.check(value) == ZelValueConversion::OutOfRange ? QVariant(domain.bounded(value.toDouble())) : value;
}

/// Writes what the user entered to the model, then takes over what the model made of it, also where it refused.
void ZelBoundProperty::commit()
{
    if (m_isCommitting || !m_object || !m_info.observedObject || hasNothingToCommit())
        return;
    const ZelPlaceScope scope(m_object);
    QVariant value = m_accessor->read(m_object);
    if (ZelIsControllerMarker(value))
        return;
    const std::shared_ptr<bool> isAlive = m_isAlive;
    m_isCommitting = true;
    const auto guard = qScopeGuard([&] {
        if (*isAlive)
            m_isCommitting = false;
    });
    const ZelRecordedWrite write(ZelUndoManager::forWidget(qobject_cast<QWidget *>(m_object)));
    ZelFirstException errors;
    errors.run([&] {
        if (m_transformer)
            value = reverseTransformed(value, m_transformer, m_name.string());
        write.setValueForKeyPath(m_info.observedObject, bounded(value), m_info.observedKeyPath);
    });
    if (*isAlive)
        errors.run([this] { update(); });
    errors.rethrow();
}
