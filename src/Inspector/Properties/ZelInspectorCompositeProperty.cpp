// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorCompositeProperty.h"

#include "Controls/private/ZelRefusalMark.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Selection/ZelValueSummary.h"
#include "Core/Selection/private/ZelColumnWatch.h"
#include "Core/Selection/private/ZelSelectionProxy.h"
#include "Core/Selection/private/ZelTypedColumn.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Undo/private/ZelModelValidation.h"
#include "Core/Undo/private/ZelRecordedWrite.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorAttributes.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/ZelView.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

double singlePrecision(double value)
{
    constexpr double largest = std::numeric_limits<float>::max();
    return double(float(std::clamp(value, -largest, largest)));
}

} // namespace

/// The controller and the key of the selected objects. The controller is null if there is a transformer or the key is
/// not a single one.
struct ZelInspectorCompositeProperty::Selection
{
    ZelObjectController *controller = nullptr;
    ZelKeyPath key;
};

ZelInspectorCompositeProperty::ZelInspectorCompositeProperty(QObject *owner, const QStringList &keys, QMetaType type)
    : ZelInspectorCustomProperty(owner)
    , m_keys(keys)
    , m_type(type)
    , m_components(keys.size(), QVariant::fromValue(ZelNoSelectionMarker))
{
    connect(this, &ZelInspectorProperty::enabledChanged, this, &ZelInspectorCompositeProperty::updateInternalEnabled);
}

void ZelInspectorCompositeProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorCustomProperty::configure(configuration);
    ZelEditorAttributes::storeFormatStyle(formatStyle, configuration);
    formatUnit = configuration.stringValueNamed(u"formatUnit");
    expressions = configuration.booleanValueNamed(u"expressions", true);
    increment = configuration.doubleValueNamed(u"increment", 1);
    incrementKeyPath = configuration.keyPathValueNamed(u"incrementKeyPath");
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
    const auto changed = signals_[index];
    Q_EMIT(this->*changed)();
}

const ZelGeometryType *ZelInspectorCompositeProperty::geometryOf(QMetaType type) const
{
    return ZelTypedColumn::typeOf(type, *ZelGeometryType::find(m_type));
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

/// Folds the values as numbers; nothing if an object's value cannot be read as such.
std::optional<QVariantList> ZelInspectorCompositeProperty::componentsOfPlainSelection() const
{
    const Selection selection = plainSelection();
    if (!selection.controller)
        return std::nullopt;
    ZelTypedColumn column(*selection.controller, selection.key.first(), *ZelGeometryType::find(m_type));
    const auto fold = column.fold([this](Numbers &numbers) { makeComponents(numbers); });
    if (!fold)
        return std::nullopt;
    QVariantList components;
    for (size_t i = 0; i < size_t(m_keys.size()); ++i)
        components.append(!fold->first                         ? QVariant::fromValue(ZelNoSelectionMarker)
                          : (fold->differing & (1U << i)) != 0 ? QVariant::fromValue(ZelMultipleValuesMarker)
                                                               : QVariant((*fold->first)[i]));
    return components;
}

/// Folds values of any kind.
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
        return isOver ? several : none; // the marker for several values ends the walk over the objects
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

ZelValueSummary ZelInspectorCompositeProperty::valueSummaryOfPart(const QString &key) const
{
    const qsizetype index = m_keys.indexOf(key);
    if (index < 0 || !keyPathHasControllerSelectionPrefix(keyPath()))
        return ZelInspectorCustomProperty::valueSummaryOfPart(key);
    const auto part = [this, index](const Numbers &numbers) { return componentOf(numbers, int(index)); };
    if (!valueTransformer())
        return ZelValueSummary::ofParts(selectedObjects(), selectedKeyPath(), int(m_keys.size()), part);
    return valueSummary().mapped([&](const QVariant &value) {
        const ZelGeometryType *type = geometryOf(value.metaType());
        Numbers numbers{};
        if (type)
            type->load(value.constData(), numbers);
        return type ? QVariant(part(numbers)) : QVariant();
    });
}

void ZelInspectorCompositeProperty::makeComponents(std::span<const Numbers> values, int index, double *components) const
{
    for (size_t i = 0; i < values.size(); ++i)
        components[i] = values[i][size_t(index)];
}

double ZelInspectorCompositeProperty::componentOf(const Numbers &numbers, int index) const
{
    double component = 0;
    makeComponents(std::span(&numbers, 1), index, &component);
    return component;
}

void ZelInspectorCompositeProperty::makeComponents(Numbers &numbers) const
{
    const Numbers value = numbers;
    for (int i = 0; i < m_keys.size(); ++i)
        numbers[size_t(i)] = componentOf(value, i);
}

// Writing

void ZelInspectorCompositeProperty::replaceComponents(std::span<Numbers> values, int index,
                                                      const double *components) const
{
    for (size_t i = 0; i < values.size(); ++i)
        values[i][size_t(index)] = components[i];
}

/// Replaces a component of a few values, the first of which is that of the object at the place. Answers false if an
/// object's own number cannot be changed; its numbers are left as they are.
bool ZelInspectorCompositeProperty::replace(std::span<Numbers> values, const Component &component,
                                            qsizetype place) const
{
    std::array<double, ZelTypedColumn::groupSize> components;
    const size_t count = values.size();
    if (!component.change) {
        std::fill_n(components.begin(), count, component.number);
        replaceComponents(values, component.index, components.data());
        return true;
    }
    makeComponents(values, component.index, components.data());
    bool areAllChanged = true;
    size_t first = 0; // of those that can be changed
    for (size_t i = 0; i < count; ++i) {
        const double changed = component.change->number(components[i], place + qsizetype(i), component.count);
        if (std::isfinite(changed)) {
            components[i] = singlePrecision(changed);
            continue;
        }
        replaceComponents(values.subspan(first, i - first), component.index, components.data() + first);
        first = i + 1;
        areAllChanged = false;
    }
    replaceComponents(values.subspan(first), component.index, components.data() + first);
    return areAllChanged;
}

QVariant ZelInspectorCompositeProperty::valueByReplacing(const QVariant &old, const Component &component,
                                                         qsizetype place) const
{
    const ZelGeometryType *type = geometryOf(old.metaType());
    Numbers numbers{};
    if (type)
        type->load(old.constData(), numbers);
    if (!replace(std::span(&numbers, 1), component, place))
        return old;
    QVariant value(type ? type->type : m_type); // a QPoint stays a QPoint
    ZelGeometryType::find(value.metaType())->store(numbers, value.data());
    return value;
}

/// Writes the values as numbers. False if an object's value cannot be read as such; nothing has been written then.
bool ZelInspectorCompositeProperty::writeIntoPlainSelection(const Component &component)
{
    const Selection selection = plainSelection();
    if (!selection.controller)
        return false;
    ZelTypedColumn column(*selection.controller, selection.key.first(), *ZelGeometryType::find(m_type));
    const auto replaceAll = [&, this](std::span<Numbers> values, qsizetype place) {
        replace(values, component, place);
    };
    auto edit = column.edit(replaceAll);
    if (!edit)
        return false;
    const ZelObjectController::ChangeBatch batch(selection.controller, selection.key);
    if (edit->objects.isEmpty())
        return true;
    const QPointer<ZelInspectorCompositeProperty> alive(this);
    const ZelPlaces places = std::move(edit->places);
    const auto renew = [&](qsizetype i, const void *present, void *value) {
        if (alive)
            column.change(present, value, places.at(i), replaceAll);
    };
    const bool mayBeRefused = ZelModelValidation::mayRefuse(selection.controller->selection(), selection.key);
    ZelColumnWatch watch(*static_cast<ZelSelectionProxy *>(selection.controller->selection()), selection.key);
    ZelRecordedWrite(undoManager())
        .setValues(edit->objects, std::move(edit->before), std::move(edit->after), selection.key, renew, mayBeRefused,
                   &watch);
    return true;
}

void ZelInspectorCompositeProperty::writeComponent(const Component &component)
{
    updateViewInvocation().schedule(); // the model may have stored something else
    const QPointer<ZelInspectorCompositeProperty> alive(this);
    ZelFirstException errors;
    errors.run([&] {
        const UpdatingValues updating(this);
        qsizetype place = 0;
        if (!writeIntoPlainSelection(component))
            updateReflectedValues([&, this](const QVariant &old) { return valueByReplacing(old, component, place++); });
    });
    if (errors.hasOccurred() && alive)
        errors.run([this] { updateView(); }); // the component is not what the models hold
    errors.rethrow();
}

void ZelInspectorCompositeProperty::updateComponent(int index)
{
    const ZelPlaceScope scope(this);
    if (isUpdatingValues())
        return;
    updateViewInvocation().schedule(); // the model may have stored something else
    // Undo brings back our component, too. It is not to be written: each of the objects has a record of its own.
    const ZelUndoManager *manager = undoManager();
    const QVariant value = m_components.at(index);
    if ((manager && manager->isUndoing()) || ZelIsControllerMarker(value))
        return;
    const double number = singlePrecision(value.toDouble());
    const QPointer<ZelInspectorCompositeProperty> alive(this);
    writeComponent({index, number});
    if (alive && isViewInstalled())
        flashUnlessKept(index, number);
}

/// Shows if the models' values have another number in this place, as far as the number's field shows it.
void ZelInspectorCompositeProperty::flashUnlessKept(int index, double number)
{
    const auto isOfComponent = [&](const QPointer<ZelInspectorProperty> &editor) {
        return editor && editor->keyPath() == m_keys.at(index) && editor->isViewInstalled();
    };
    const auto editor = std::find_if(m_editors.cbegin(), m_editors.cend(), isOfComponent);
    auto *numberEditor = editor == m_editors.cend() ? nullptr : qobject_cast<ZelInspectorNumberProperty *>(*editor);
    ZelTextField *field = numberEditor ? numberEditor->textField() : nullptr;
    if (!field || !field->formatter())
        return;
    std::optional<QVariantList> folded = componentsOfPlainSelection();
    if (!folded)
        folded = componentsOfSelection();
    const QVariant &kept = folded->at(index);
    const auto shown = [&](const QVariant &value) { return field->formatter()->stringForObjectValue(value); };
    if (!ZelIsMarker(kept, ZelMultipleValuesMarker) && shown(kept) == shown(number))
        return;
    const int type = reflectedValue().typeId();
    const bool isWhole = type == QMetaType::QPoint || type == QMetaType::QSize || type == QMetaType::QRect;
    if (isWhole && std::abs(kept.toDouble() - number) < 1) // rounded by its type
        return;
    ZelRefusalMark::showChange(field, shown(number), ZelIsControllerMarker(kept) ? QString() : shown(kept));
    updateValues(); // at once, so that no undo step is recorded for a component that did not change in the end
}

QString ZelInspectorCompositeProperty::refusalOfPart(const QString &keyPath, const QVariant &value) const
{
    const auto index = int(m_keys.indexOf(keyPath));
    if (index < 0 || ZelIsControllerMarker(value))
        return {};
    const Component component{index, singlePrecision(value.toDouble())};
    return refusalOfValues([&](const QVariant &old) { return valueByReplacing(old, component, 0); });
}

std::vector<double> ZelInspectorCompositeProperty::numbersForKey(ZelKey key) const
{
    const auto index = m_keys.indexOf(key.string());
    std::vector<double> own;
    if (index < 0)
        return own;
    const auto take = [&, this](const Numbers &numbers) { own.push_back(componentOf(numbers, int(index))); };
    const Selection selection = plainSelection();
    if (selection.controller &&
        ZelTypedColumn(*selection.controller, selection.key.first(), *ZelGeometryType::find(m_type)).visit(take))
        return own;
    own.clear();
    combinedReflectedValue([&, this](const QVariant &value) {
        Numbers numbers{};
        const ZelGeometryType *type = geometryOf(value.metaType());
        if (type)
            type->load(value.constData(), numbers);
        take(numbers);
        if (!type)
            own.back() = std::numeric_limits<double>::quiet_NaN();
        return QVariant::fromValue(ZelNoSelectionMarker); // goes on to the next object
    });
    return own;
}

void ZelInspectorCompositeProperty::changeNumbersForKey(ZelKey key, const ZelNumberChange &change)
{
    const ZelPlaceScope scope(this);
    const auto index = int(m_keys.indexOf(key.string()));
    if (index < 0 || isUpdatingValues())
        return;
    const ZelObjectController *controller = plainSelection().controller;
    const auto count = controller ? controller->selectedCount() : qsizetype(numbersForKey(key).size());
    const QPointer<ZelInspectorCompositeProperty> alive(this);
    writeComponent({index, 0, &change, count});
    if (alive)
        updateValues(); // the components follow the objects
}

void ZelInspectorCompositeProperty::componentDidChange()
{
    if (actionSelector().isNull() || !owner())
        return;
    actionSelector().perform(owner());
    ZelRereadSilentProperties(); // the action may have changed properties without a signal
}

void ZelInspectorCompositeProperty::updateInternalEnabled()
{
    if (!isViewInstalled() && !enabledKeyPath().isEmpty())
        return; // key paths are evaluated when the view is installed
    const ZelPlaceScope scope(this);
    const bool enabled = computeInternalEnabled();
    if (ZelAssign(m_internalEnabled, enabled))
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
    editor->setDisabledReason(disabledReason());
    editor->setActionName(actionName);
    editor->setActionSelector("componentDidChange");
    editor->formatStyle = formatStyle;
    editor->formatUnit = formatUnit;
    editor->expressions = expressions;
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
            [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateInternalEnabled(); },
            &ZelInstalledContext);
    if (owner() && !keyPath().isEmpty())
        ZelObservations(this).addObservationWithObject(
            owner(), keyPath(), 0,
            [this](ZelBlockObservation *, const ZelKeyValueChange &) {
                ZelExceptionReporter::passOn(this, [this] { updateValues(); });
            },
            &ZelInstalledContext);
    for (int i = 0; i < m_keys.size(); ++i)
        ZelObservations(this).addObservationWithObject(
            this, m_keys.at(i), ZelKeyValueObservingOptionEqualCheck,
            [this, i](ZelBlockObservation *, const ZelKeyValueChange &) { updateComponent(i); }, &ZelInstalledContext);
    updateValues();
}
