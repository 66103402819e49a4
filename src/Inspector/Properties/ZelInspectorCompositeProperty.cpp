// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorCompositeProperty.h"

#include "Observation/ZelDelayedInvocation.h"
#include "Observation/ZelObservations.h"
#include "Platform/Runtime/ZelKeyValueObserving.h"
#include "Platform/Runtime/ZelValues.h"
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

ZelInspectorCompositeProperty::ZelInspectorCompositeProperty(QObject *owner, const QStringList &keys)
    : ZelInspectorCustomProperty(owner)
    , m_keys(keys)
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

void ZelInspectorCompositeProperty::updateValues()
{
    if (isUpdatingValues())
        return;
    const QVariant several = QVariant::fromValue(ZelMultipleValuesMarker);
    const QVariant none = QVariant::fromValue(ZelNoSelectionMarker);
    QVariantList folded(m_components.size(), none);
    const QVariant whole = combinedReflectedValue([&](const QVariant &value) {
        const bool isMarker = ZelIsControllerMarker(value);
        const Components parts = isMarker || ZelIsNull(value) ? Components() : componentsOfValue(value);
        for (qsizetype i = 0; i < folded.size(); ++i) {
            const QVariant &known = folded.at(i);
            if (ZelIsMarker(known, ZelMultipleValuesMarker) ||
                (!parts.isEmpty() && known.typeId() == QMetaType::Double && known.toDouble() == parts.at(i)))
                continue; // as nearly always in a large selection
            const QVariant part = isMarker ? value : parts.isEmpty() ? QVariant() : QVariant(parts.at(i));
            folded[i] = combinedValueWithValue(part, folded.at(i));
        }
        const bool isOver = std::all_of(folded.cbegin(), folded.cend(), [](const QVariant &part) {
            return ZelIsMarker(part, ZelMultipleValuesMarker);
        });
        return isOver ? several : none; // ends the walk, or goes on
    });
    if (ZelIsMarker(whole, ZelNotApplicableMarker))
        folded.fill(whole);
    const QPointer<ZelInspectorCompositeProperty> alive(this);
    const UpdatingValues updating(this);
    for (qsizetype i = 0; i < folded.size() && alive; ++i)
        setComponent(int(i), folded.at(i));
    if (alive)
        didUpdateValues();
}

void ZelInspectorCompositeProperty::updateComponent(int index)
{
    if (isUpdatingValues())
        return;
    updateViewInvocation().schedule(); // the model may make something else of it
    // Undo brings our component back, too, but the objects of then have their own records.
    const ZelUndoManager *manager = undoManager();
    const QVariant value = m_components.at(index);
    if ((manager && manager->isUndoing()) || ZelIsControllerMarker(value))
        return;
    const double number = singlePrecision(value.toDouble());
    const UpdatingValues updating(this);
    updateReflectedValues([this, index, number](const QVariant &old) {
        const bool isValue = !ZelIsNull(old) && !componentsOfValue(old).isEmpty();
        QVariant value = valueByReplacing(isValue ? old : QVariant(), index, number);
        if (isValue && old.metaType() != value.metaType())
            value.convert(old.metaType()); // an integer point stays one
        return value;
    });
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
    observeForUpdate(keyPath(), &g_context);
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
