// SPDX-License-Identifier: MIT
#include "Controls/private/ZelControlSupport.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Undo/private/ZelRecordedWrite.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Core/Values/private/ZelValueConversion.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/Properties/private/ZelEditorDefault.h"
#include "Inspector/Properties/private/ZelTypedText.h"
#include "Resources/ZelLocalizedString.h"

#include <algorithm>

// The part of the property editor that brings in values other than through its control: the default, and what is
// pasted.

namespace {

/// Whether the property behind the path is reset by its class, for an object of the model.
bool isResettable(const QObject *object, const ZelKeyPath &path)
{
    if (!object || path.isEmpty())
        return false;
    if (!path.isSingleKey()) {
        const QObject *next =
            ZelHasKey(object, path.first()) ? ZelObject(ZelValueForKey(object, path.first())) : nullptr;
        return isResettable(next, path.rest());
    }
    if (ZelPropertyAccessor::interfaceOf(object))
        return false;
    const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(object, path.first());
    return accessor && accessor->isResettable();
}

QString strippedPath(const QString &keyPath)
{
    return ZelInspectorProperty::keyPathByStripingControllerSelectionPrefix(keyPath);
}

} // namespace

// The default

ZelEditorDefault &ZelInspectorProperty::editorDefault()
{
    if (!m_default)
        m_default = std::make_unique<ZelEditorDefault>();
    return *m_default;
}

QVariant ZelInspectorProperty::defaultValue() const
{
    return m_default ? m_default->value : QVariant();
}

void ZelInspectorProperty::setDefaultValue(const QVariant &value)
{
    if (m_default || value.isValid())
        editorDefault().value = value;
}

QString ZelInspectorProperty::defaultValueKeyPath() const
{
    return m_default ? m_default->keyPath : QString();
}

void ZelInspectorProperty::setDefaultValueKeyPath(const QString &keyPath)
{
    if (m_default || !keyPath.isEmpty())
        editorDefault().keyPath = keyPath;
}

bool ZelInspectorProperty::isChangedFromDefault() const
{
    return m_default && m_default->isChanged;
}

void ZelInspectorProperty::observeDefault()
{
    observeForUpdate(m_keyPath);
    observeForUpdate(m_default->keyPath);
    updateViewInvocation().schedule();
}

void ZelInspectorProperty::updateChangedFromDefault()
{
    const ZelPlaceScope scope(this);
    if (ZelAssign(m_default->isChanged, computeChangedFromDefault()))
        Q_EMIT changedFromDefaultChanged();
}

bool ZelInspectorProperty::computeChangedFromDefault() const
{
    const QVariant value = modelValue();
    if (ZelIsMarker(value, ZelNoSelectionMarker) || ZelIsMarker(value, ZelNotApplicableMarker))
        return false;
    const auto differs = [this](const QObject *object, const QVariant &stored) {
        const std::optional<QVariant> standard = defaultOf(object, stored);
        return standard && ZelNotEqual(withEditedBits(*standard, stored), stored);
    };
    // One default is compared with the one value, and several values cannot all be the same as it.
    if (!keyPathHasControllerSelectionPrefix(m_default->keyPath))
        return ZelIsControllerMarker(value) ? defaultOf(nullptr, {}).has_value() : differs(nullptr, value);
    const QList<QObject *> objects = editedObjects();
    ZelClassAccessors accessors(strippedPath(m_keyPath));
    return std::any_of(objects.begin(), objects.end(), [&](const QObject *object) {
        const std::optional<QVariant> stored = accessors.read(object);
        return stored && differs(object, *stored);
    });
}

/// The default as a value of the type that the object's value has. Nothing if there is none of that type, which is
/// warned of once.
std::optional<QVariant> ZelInspectorProperty::defaultOf(const QObject *object, const QVariant &stored) const
{
    const bool isOwn = object && keyPathHasControllerSelectionPrefix(m_default->keyPath);
    const QString &path = m_default->keyPath;
    const QVariant value = path.isEmpty() ? m_default->value
                           : isOwn        ? ZelValueForKeyPath(object, strippedPath(path))
                                          : ZelValueForKeyPath(m_owner.data(), path);
    if (ZelIsControllerMarker(value))
        return std::nullopt;
    if (ZelIsNull(value))
        return QVariant();
    const bool isFlag = editedBits() && value.typeId() == QMetaType::QString &&
                        ZelTypedText::described(value.toString(), QMetaType::fromType<quint64>()) == std::nullopt;
    const QMetaType type = isFlag ? QMetaType::fromType<bool>() : typeOfValue(stored);
    const std::optional<QVariant> typed = ZelEditorDefault::converted(value, type);
    if (!typed && !std::exchange(m_default->hasWarned, true))
        ZelLogWarning(QStringLiteral("The default value \"%1\" is no %2")
                          .arg(ZelDescription(value), QString::fromUtf8(type.name())));
    return typed;
}

QMetaType ZelInspectorProperty::typeOfValue(const QVariant &stored) const
{
    if (!ZelIsNull(stored) && !ZelIsControllerMarker(stored))
        return stored.metaType();
    const auto types = ZelPropertyDomain::ofKeyPath(m_owner, m_keyPath).types();
    const auto known =
        std::find_if(types.begin(), types.end(), [](QMetaType type) { return type.id() != QMetaType::QVariant; });
    return known == types.end() ? (valueTransformer() ? QMetaType() : valueType()) : *known;
}

QVariant ZelInspectorProperty::withEditedBits(const QVariant &value, const QVariant &stored) const
{
    const std::optional<quint64> mask = editedBits();
    if (!mask)
        return value;
    const quint64 bits = value.typeId() == QMetaType::Bool ? (value.toBool() ? ~quint64(0) : 0) : unsignedValue(value);
    return ZelValueConversion::ofBits((unsignedValue(stored) & ~*mask) | (bits & *mask), stored.metaType());
}

QList<QObject *> ZelInspectorProperty::editedObjects() const
{
    if (!m_owner || m_keyPath.isEmpty())
        return {};
    return keyPathHasControllerSelectionPrefix(m_keyPath) ? representedObjectsForControllerSelectionKeyPath(m_keyPath)
                                                          : QList<QObject *>{m_owner};
}

/// Whether the controls would let users change the value at this moment.
bool ZelInspectorProperty::isEditable() const
{
    const QVariant editable = property("editable"); // of the classes that may only show a value
    return (!editable.isValid() || editable.toBool()) && isWritable() && isEffectivelyEnabled();
}

bool ZelInspectorProperty::canReset() const
{
    const QList<QObject *> objects = editedObjects();
    if (objects.isEmpty() || !isEditable())
        return false;
    const ZelKeyPath path = strippedPath(m_keyPath);
    return m_default || std::any_of(objects.begin(), objects.end(),
                                    [&](const QObject *object) { return isResettable(object, path); });
}

void ZelInspectorProperty::resetValue()
{
    const ZelPlaceScope scope(this);
    if (!canReset())
        return;
    const QPointer<ZelInspectorProperty> alive(this);
    discardEditing();
    if (!alive)
        return;
    const ZelUndoGrouping grouping(undoManager());
    ZelFirstException errors;
    errors.run([this] { writeDefaults(); });
    if (alive)
        errors.run([this] { ZelInspectorProperty::userDidChangeValue(this); });
    errors.rethrow();
}

void ZelInspectorProperty::writeDefaults()
{
    QList<QObject *> objects = editedObjects();
    const QPointer<ZelInspectorProperty> alive(this);
    if (m_default) {
        writeModelValues(objects, [=, this](const QObject *object, const QVariant &stored) -> std::optional<QVariant> {
            const std::optional<QVariant> value = alive ? defaultOf(object, stored) : std::nullopt;
            return value ? std::optional(withEditedBits(*value, stored)) : std::nullopt;
        });
        return;
    }
    const ZelKeyPath path = strippedPath(m_keyPath);
    objects.removeIf([&](const QObject *object) { return !isResettable(object, path); });
    writeModelValues(objects, [](const QObject *, const QVariant &) { return QVariant(); });
}

/// Writes the answers of the block, which gets each object and the value that it has. Equal answers are not written,
/// but absent ones are: an object may be reset by them. The object is null where all of them may be treated alike.
void ZelInspectorProperty::writeModelValues(const QList<QObject *> &objects, const ObjectBlock &block)
{
    const ZelKeyPath path = strippedPath(m_keyPath);
    const bool isSelection = keyPathHasControllerSelectionPrefix(m_keyPath);
    QObject *controller =
        isSelection ? ZelObject(ZelValueForKeyPath(m_owner.data(), selectionControllerKeyPathFromKeyPath(m_keyPath)))
                    : nullptr;
    const ZelObjectController::ChangeBatch batch(qobject_cast<ZelObjectController *>(controller), path);
    const auto answer = [&](const QObject *object, const QVariant &stored) -> std::optional<QVariant> {
        const std::optional<QVariant> value = block(object, stored);
        return value && (!value->isValid() || ZelNotEqual(*value, stored)) ? value : std::nullopt;
    };
    const QPointer<ZelUndoManager> manager(undoManager());
    const bool hasOwnDefaults = m_default && keyPathHasControllerSelectionPrefix(m_default->keyPath);
    if (path.isSingleKey() && !hasOwnDefaults) {
        ZelRecordedWrite(manager).mapValues(objects, path,
                                            [&](const QVariant &stored) { return answer(nullptr, stored); });
        return;
    }
    const ZelUndoGrouping grouping(manager);
    const QList<QPointer<QObject>> pointers(objects.begin(), objects.end());
    ZelFirstException errors;
    for (const QPointer<QObject> &object : pointers) {
        errors.run([&] {
            if (!object || !ZelHasKey(object, path.first()))
                return;
            if (const auto value = answer(object, ZelValueForKeyPath(object.data(), path)); value && object)
                ZelRecordedWrite(manager).setValueForKeyPath(object, *value, path);
        });
    }
    errors.rethrow();
}

// Copy and paste

QVariant ZelInspectorProperty::transformedForward(const QVariant &modelValue) const
{
    return valueTransformer() ? valueTransformer()->transformedValue(modelValue) : modelValue;
}

QVariant ZelInspectorProperty::transformedBack(const QVariant &shownValue) const
{
    if (!valueTransformer())
        return shownValue;
    return valueTransformer()->allowsReverseTransformation() ? valueTransformer()->reverseTransformedValue(shownValue)
                                                             : valueTransformer()->transformedValue(shownValue);
}

QVariant ZelInspectorProperty::modelValue() const
{
    const ZelPlaceScope scope(this);
    if (m_keyPath.isEmpty() || !m_owner)
        return {};
    if (const std::optional<quint64> mask = editedBits())
        return combinedReflectedValue([=](const QVariant &value) { return valueForValueBitMask(value, *mask); });
    return ZelValueForKeyPath(m_owner.data(), m_keyPath);
}

QString ZelInspectorProperty::textOfValue(const QVariant &modelValue) const
{
    return ZelTypedText::of(transformedForward(modelValue));
}

bool ZelInspectorProperty::readText(const QString &text, QVariant *modelValue, QString *error) const
{
    if (valueTransformer()) {
        *modelValue = transformedBack(text);
        return true;
    }
    const QMetaType type = typeOfValue(ZelInspectorProperty::modelValue());
    const std::optional<QVariant> value = ZelTypedText::entered(text, type);
    if (value) {
        *modelValue = *value;
        return true;
    }
    const QString reason = refusalOf(text);
    *error = reason.isNull() ? ZelLocalizedString("This is not a value.") : reason;
    return false;
}

QString ZelInspectorProperty::pasteValue(const QVariant &value)
{
    const ZelPlaceScope scope(this);
    const QVariant present = m_keyPath.isEmpty() ? QVariant() : ZelValueForKeyPath(m_owner.data(), m_keyPath);
    const bool hasTarget = !ZelIsMarker(present, ZelNoSelectionMarker) && !editedObjects().isEmpty();
    if (!hasTarget || ZelIsMarker(present, ZelNotApplicableMarker))
        return ZelControlSupport::markerText(
            QVariant::fromValue(hasTarget ? ZelNotApplicableMarker : ZelNoSelectionMarker));
    if (!isEditable())
        return ZelLocalizedString("This cannot be changed.");
    if (const QString refusal = refusalOfPasted(value); !refusal.isNull())
        return refusal;
    const QPointer<ZelInspectorProperty> alive(this);
    discardEditing();
    if (!alive)
        return {};
    const ZelUndoGrouping grouping(undoManager());
    ZelFirstException errors;
    errors.run([&] {
        writeModelValues(editedObjects(),
                         [=, this](const QObject *, const QVariant &stored) -> std::optional<QVariant> {
                             return alive ? std::optional(withEditedBits(value, stored)) : std::nullopt;
                         });
    });
    if (alive)
        errors.run([this] { ZelInspectorProperty::userDidChangeValue(this); });
    errors.rethrow();
    return {};
}
