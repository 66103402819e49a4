// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorCompositeProperty.h"

#include "Observation/ZelDelayedInvocation.h"
#include "Observation/ZelObservations.h"
#include "Platform/Runtime/ZelClassAccessors.h"
#include "Platform/Runtime/ZelExceptionReporter.h"
#include "Platform/Runtime/ZelFirstException.h"
#include "Platform/Runtime/ZelKeyValueCoding.h"
#include "Platform/Runtime/ZelKeyValueObserving.h"
#include "Platform/Runtime/ZelValues.h"
#include "Platform/Selection/ZelObjectController.h"
#include "Platform/Selection/ZelRecordedWrite.h"
#include "Platform/Selection/ZelUndoManager.h"
#include "ViewController/ZelView.h"

#include <algorithm>
#include <limits>

namespace {

const char g_context = 0;

double singlePrecision(double value)
{
    constexpr double largest = std::numeric_limits<float>::max();
    return double(float(std::clamp(value, -largest, largest)));
}

} // namespace

/// The selected objects, where the editor shows and writes their values as they are.
struct ZelInspectorCompositeProperty::Selection
{
    ZelObjectController *controller = nullptr;
    ZelKeyPath key;
};

/// Reads objects' values through memory, which costs a fraction of reading them as variants.
class ZelInspectorCompositeProperty::Reader
{
public:
    Reader(const ZelInspectorCompositeProperty &property, const ZelKeyPath &key)
        : m_property(property)
        , m_accessors(key)
    {
    }
    /// Null where the object's property is not of one of the editor's types.
    const ZelGeometryType *typeOf(const QObject *object)
    {
        const ZelPropertyAccessor *accessor = m_accessors.of(object);
        if (accessor != m_accessor) {
            m_accessor = accessor;
            m_type = accessor ? m_property.geometryOf(accessor->type()) : nullptr;
            m_isSilent = accessor && accessor->isSilent();
        }
        return m_type;
    }
    // Of the object that was last asked for its type:
    bool isSilent() const { return m_isSilent; }
    bool read(const QObject *object, void *value) const { return m_accessor->readTyped(object, value); }

private:
    const ZelInspectorCompositeProperty &m_property;
    ZelClassAccessors m_accessors;
    const ZelPropertyAccessor *m_accessor = nullptr;
    const ZelGeometryType *m_type = nullptr;
    bool m_isSilent = false;
};

ZelInspectorCompositeProperty::ZelInspectorCompositeProperty(QObject *owner, const QStringList &keys, QMetaType type)
    : ZelInspectorCustomProperty(owner)
    , m_keys(keys)
    , m_type(type)
    , m_components(keys.size(), QVariant::fromValue(ZelNoSelectionMarker))
{
    connect(this, &ZelInspectorProperty::enabledChanged, this, &ZelInspectorCompositeProperty::updateInternalEnabled);
}

ZelInspectorCompositeProperty::~ZelInspectorCompositeProperty()
{
    uninstall();
}

// Components

void ZelInspectorCompositeProperty::setComponent(int index, const QVariant &value)
{
    static constexpr void (ZelInspectorCompositeProperty::*signals_[maximumCount])() = {
        &ZelInspectorCompositeProperty::firstChanged, &ZelInspectorCompositeProperty::secondChanged,
        &ZelInspectorCompositeProperty::thirdChanged, &ZelInspectorCompositeProperty::fourthChanged};
    if (ZelEqual(value, m_components.at(index)))
        return;
    m_components[index] = ZelPresent(value);
    Q_EMIT(this->*signals_[index])();
}

const ZelGeometryType *ZelInspectorCompositeProperty::geometryOf(QMetaType type) const
{
    const ZelGeometryType *found = ZelGeometryType::find(type);
    return found && found->count == m_keys.size() ? found : nullptr;
}

ZelInspectorCompositeProperty::Selection ZelInspectorCompositeProperty::plainSelection() const
{
    if (valueTransformer() || !owner() || !keyPathHasControllerSelectionPrefix(keyPath()))
        return {};
    const ZelKeyPath key = keyPathByStripingControllerSelectionPrefix(keyPath());
    const QString controllerKeyPath = selectionControllerKeyPathFromKeyPath(keyPath());
    if (!key.isSingleKey() || controllerKeyPath.isEmpty())
        return {};
    return {qobject_cast<ZelObjectController *>(ZelObject(ZelValueForKeyPath(owner(), controllerKeyPath))), key};
}

/// The fold by numbers; nothing where an object's value is not read as such.
std::optional<QVariantList> ZelInspectorCompositeProperty::componentsOfPlainSelection() const
{
    const Selection selection = plainSelection();
    if (!selection.controller)
        return std::nullopt;
    unsigned differing = 0; // a bit a component
    std::optional<Numbers> known;
    // The selection knows already whether it has one value, as it has in most cases.
    const QVariant whole = ZelValueForKey(selection.controller->selection(), selection.key.first());
    if (const ZelGeometryType *type = geometryOf(whole.metaType())) {
        type->load(whole.constData(), known.emplace());
        makeComponents(*known);
    } else if (!compareNumbers(selection, &known, &differing)) {
        return std::nullopt;
    }
    QVariantList components;
    for (size_t i = 0; i < size_t(m_keys.size()); ++i)
        components.append(!known                         ? QVariant::fromValue(ZelNoSelectionMarker)
                          : (differing & (1U << i)) != 0 ? QVariant::fromValue(ZelMultipleValuesMarker)
                                                         : QVariant((*known)[i]));
    return components;
}

/// Finds out in which components the objects differ. False where an object's value is not read as numbers.
bool ZelInspectorCompositeProperty::compareNumbers(const Selection &selection, std::optional<Numbers> *known,
                                                   unsigned *differing) const
{
    const QList<QPointer<QObject>> objects = selection.controller->heldObjects();
    Reader reader(*this, selection.key);
    const unsigned all = (1U << m_keys.size()) - 1;
    alignas(double) std::byte memory[sizeof(Numbers)]; // of the largest type
    Numbers numbers{};
    for (auto object = objects.cbegin(); object != objects.cend() && *differing != all; ++object) {
        if (!*object)
            continue;
        const ZelGeometryType *type = reader.typeOf(*object);
        if (!type || !reader.read(*object, memory))
            return false;
        type->load(memory, numbers);
        makeComponents(numbers);
        if (!*known)
            *known = numbers;
        for (size_t i = 0; i < numbers.size(); ++i)
            *differing |= unsigned(numbers[i] != (**known)[i]) << i;
    }
    return true;
}

/// The fold of any values.
QVariantList ZelInspectorCompositeProperty::componentsOfSelection() const
{
    const QVariant several = QVariant::fromValue(ZelMultipleValuesMarker);
    const QVariant none = QVariant::fromValue(ZelNoSelectionMarker);
    QVariantList folded(m_components.size(), none);
    const QVariant whole = combinedReflectedValue([&](const QVariant &value) {
        const ZelGeometryType *type = geometryOf(value.metaType());
        Numbers numbers{};
        if (type) {
            type->load(value.constData(), numbers);
            makeComponents(numbers);
        }
        for (qsizetype i = 0; i < folded.size(); ++i) {
            const QVariant part = type                           ? QVariant(numbers[size_t(i)])
                                  : ZelIsControllerMarker(value) ? value
                                                                 : QVariant();
            folded[i] = combinedValueWithValue(part, folded.at(i));
        }
        const bool isOver = std::all_of(folded.cbegin(), folded.cend(), [](const QVariant &part) {
            return ZelIsMarker(part, ZelMultipleValuesMarker);
        });
        return isOver ? several : none; // ends the walk, or goes on
    });
    if (ZelIsMarker(whole, ZelNotApplicableMarker))
        folded.fill(whole);
    return folded;
}

void ZelInspectorCompositeProperty::updateValues()
{
    if (isUpdatingValues())
        return;
    std::optional<QVariantList> folded = componentsOfPlainSelection();
    if (!folded)
        folded = componentsOfSelection();
    const QPointer<ZelInspectorCompositeProperty> alive(this);
    const UpdatingValues updating(this);
    for (qsizetype i = 0; i < folded->size() && alive; ++i)
        setComponent(int(i), folded->at(i));
    if (!alive)
        return;
    didUpdateValues();
    const bool cannotWrite = !isWritable();
    for (const QPointer<ZelInspectorProperty> &editor : std::as_const(m_editors)) {
        if (editor)
            editor->setReadOnly(cannotWrite);
    }
}

QVariant ZelInspectorCompositeProperty::valueByReplacing(const QVariant &old, int index, double component) const
{
    const ZelGeometryType *type = geometryOf(old.metaType());
    Numbers numbers{};
    if (type)
        type->load(old.constData(), numbers);
    replaceComponent(numbers, index, component);
    QVariant value(type ? type->type : m_type); // an integer point stays one
    ZelGeometryType::find(value.metaType())->store(numbers, value.data());
    return value;
}

/// Writes through memory; false where an object's value is not read as such, and then nothing was written.
bool ZelInspectorCompositeProperty::writeIntoPlainSelection(int index, double component)
{
    const Selection selection = plainSelection();
    if (!selection.controller)
        return false;
    Reader reader(*this, selection.key);
    QList<QPointer<QObject>> objects = selection.controller->heldObjects();
    const ZelGeometryType *type = nullptr; // all objects'
    ZelValueBlock before;
    ZelValueBlock after;
    Numbers numbers{};
    qsizetype count = 0; // of those that change, which come to be the first of the lists
    for (qsizetype i = 0; i < objects.size(); ++i) {
        const QObject *object = objects.at(i);
        if (!object)
            continue;
        if (!type && (type = reader.typeOf(object))) {
            before = ZelValueBlock(type->type, objects.size());
            after = ZelValueBlock(type->type, objects.size());
        }
        if (!type || reader.typeOf(object) != type || reader.isSilent() || !reader.read(object, before.data(count)))
            return false;
        type->load(before.data(count), numbers);
        replaceComponent(numbers, index, component);
        type->store(numbers, after.data(count));
        if (type->equal(before.data(count), after.data(count)))
            continue;
        if (count < i)
            objects[count] = objects.at(i);
        ++count;
    }
    if (count < objects.size()) { // otherwise the list is shared with the controller
        objects.resize(count);
        before.shrink(count);
        after.shrink(count);
    }
    const ZelObjectController::ChangeBatch batch(selection.controller, selection.key);
    if (count == 0)
        return true;
    QVariant now(type->type);
    const QPointer<ZelInspectorCompositeProperty> alive(this);
    const auto refresh = [&](const QObject *object, const void *old, void *replaced) {
        if (!alive || reader.typeOf(object) != type || !reader.read(object, now.data()) ||
            type->equal(old, now.constData()))
            return; // it is as it was read above, unless the setter of another object has changed it
        type->load(now.constData(), numbers);
        replaceComponent(numbers, index, component);
        type->store(numbers, replaced);
    };
    ZelRecordedWrite(undoManager()).setValues(objects, std::move(before), std::move(after), selection.key, refresh);
    return true;
}

void ZelInspectorCompositeProperty::updateComponent(int index)
{
    const ZelPlaceScope scope(this);
    if (isUpdatingValues())
        return;
    updateViewInvocation().schedule(); // the model may make something else of it
    // Undo brings our component back, too, but the objects of then have their own records.
    const ZelUndoManager *manager = undoManager();
    const QVariant value = m_components.at(index);
    if ((manager && manager->isUndoing()) || ZelIsControllerMarker(value))
        return;
    const double number = singlePrecision(value.toDouble());
    const QPointer<ZelInspectorCompositeProperty> alive(this);
    ZelFirstException errors;
    errors.run([&] {
        const UpdatingValues updating(this);
        if (!writeIntoPlainSelection(index, number))
            updateReflectedValues([=, this](const QVariant &old) { return valueByReplacing(old, index, number); });
    });
    if (errors.hasOccurred() && alive)
        errors.run([this] { updateView(); }); // the component is not what the models have
    errors.rethrow();
}

void ZelInspectorCompositeProperty::componentDidChange()
{
    if (actionSelector().isNull() || !owner())
        return;
    actionSelector().perform(owner());
    ZelRereadSilentProperties(); // whatever the action did
}

void ZelInspectorCompositeProperty::updateInternalEnabled()
{
    if (!isViewInstalled() && !enabledKeyPath().isEmpty())
        return; // key paths are evaluated when the view is installed
    const ZelPlaceScope scope(this);
    const bool enabled = computeInternalEnabled();
    if (enabled == m_internalEnabled)
        return;
    m_internalEnabled = enabled;
    Q_EMIT internalEnabledChanged();
}

// Editors

QString ZelInspectorCompositeProperty::ownersKeyPath(const QString &keyPath)
{
    return keyPath.isEmpty() ? keyPath : QStringLiteral("owner.") + keyPath;
}

ZelInspectorNumberProperty *ZelInspectorCompositeProperty::makeNumberEditor(int index, const QString &title,
                                                                            const QString &actionName)
{
    auto *editor = new ZelInspectorNumberProperty(this);
    adoptEditor(editor);
    editor->setTitle(title);
    editor->setKeyPath(m_keys.at(index));
    editor->setEnabledKeyPath(QStringLiteral("internalEnabled"));
    editor->setActionName(actionName);
    editor->setActionSelector("componentDidChange");
    editor->formatStyle = formatStyle;
    editor->formatUnit = formatUnit;
    editor->increment = increment;
    editor->incrementKeyPath = ownersKeyPath(incrementKeyPath);
    return editor;
}

void ZelInspectorCompositeProperty::adoptEditor(ZelInspectorProperty *editor)
{
    editor->setParent(this);
    m_editors.append(editor);
}

void ZelInspectorCompositeProperty::removeEditors()
{
    const QList<QPointer<ZelInspectorProperty>> former = std::exchange(m_editors, {});
    for (const QPointer<ZelInspectorProperty> &editor : former)
        delete editor.data();
}

bool ZelInspectorCompositeProperty::commitEditing()
{
    const QPointer<ZelInspectorCompositeProperty> alive(this);
    const QList<QPointer<ZelInspectorProperty>> editors = m_editors;
    for (const QPointer<ZelInspectorProperty> &editor : editors) {
        if (editor && !editor->commitEditing())
            return false;
    }
    return !alive || ZelInspectorCustomProperty::commitEditing();
}

void ZelInspectorCompositeProperty::discardEditing()
{
    const QList<QPointer<ZelInspectorProperty>> editors = m_editors;
    for (const QPointer<ZelInspectorProperty> &editor : editors) {
        if (editor)
            editor->discardEditing();
    }
    ZelInspectorCustomProperty::discardEditing();
}

// Installation

void ZelInspectorCompositeProperty::viewDidInstall()
{
    ZelInspectorCustomProperty::viewDidInstall();
    updateInternalEnabled();
    if (owner() && !enabledKeyPath().isEmpty())
        ZelObservations(this).addObservationWithObject(
            owner(), enabledKeyPath(), 0,
            [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateInternalEnabled(); }, &g_context);
    if (owner() && !keyPath().isEmpty())
        ZelObservations(this).addObservationWithObject(
            owner(), keyPath(), 0,
            [this](ZelBlockObservation *, const ZelKeyValueChange &) {
                ZelExceptionReporter::passOn(this, [this] { updateValues(); });
            },
            &g_context);
    for (int i = 0; i < m_keys.size(); ++i)
        ZelObservations(this).addObservationWithObject(
            this, m_keys.at(i), ZelKeyValueObservingOptionEqualCheck,
            [this, i](ZelBlockObservation *, const ZelKeyValueChange &) { updateComponent(i); }, &g_context);
    updateValues();
}

void ZelInspectorCompositeProperty::viewWillUninstall()
{
    ZelInspectorCustomProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_context);
    cancelUpdateView();
}
