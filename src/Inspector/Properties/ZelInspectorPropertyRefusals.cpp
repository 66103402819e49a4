// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorProperty.h"

#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/private/ZelRefusalMark.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Undo/private/ZelModelValidation.h"
#include "Core/Undo/private/ZelOwnNumbers.h"
#include "Core/Undo/private/ZelRecordedWrite.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/private/ZelKeptValueCheck.h"
#include "Inspector/Properties/private/ZelValueRefusal.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelView.h"

#include <QAbstractScrollArea>
#include <QApplication>

#include <algorithm>
#include <cmath>

// The part of the property editor that deals with values which types or models refuse.

QString ZelInspectorProperty::refusalOf(const QVariant &modelValue) const
{
    const QString reason =
        ZelValueRefusal::reason(ZelPropertyDomain::ofKeyPath(m_owner, m_keyPath), modelValue, valueTransformer());
    if (!reason.isNull() || !m_owner)
        return reason;
    if (const auto *outer = qobject_cast<const ZelInspectorProperty *>(m_owner.data()))
        return outer->refusalOfPart(m_keyPath, modelValue);
    const auto validation = ZelModelValidation::ofKeyPath(m_owner, m_keyPath, modelValue);
    return validation.isRefused() ? ZelRefusalMark::text(validation) : QString();
}

QString ZelInspectorProperty::refusalOfValues(const ValueBlock &block) const
{
    const bool isSelection = keyPathHasControllerSelectionPrefix(m_keyPath);
    const ZelKeyPath path = keyPathByStripingControllerSelectionPrefix(m_keyPath);
    if (!m_owner || path.isEmpty() || !path.isSingleKey())
        return {};
    const QString controllerKeyPath = selectionControllerKeyPathFromKeyPath(m_keyPath);
    const auto *controller =
        isSelection ? qobject_cast<ZelObjectController *>(ZelObject(ZelValueForKeyPath(m_owner, controllerKeyPath)))
                    : nullptr;
    if (controller && !ZelModelValidation::mayRefuse(controller->selection(), path))
        return {};
    const QList<QObject *> objects =
        isSelection ? representedObjectsForControllerSelectionKeyPath(m_keyPath) : QList<QObject *>{m_owner};
    ZelModelValidation validation(path.first());
    ZelClassAccessors accessors(path);
    for (QObject *object : objects) {
        const auto stored = validation.validates(object) ? accessors.read(object) : std::nullopt;
        const QVariant value =
            stored ? block(valueTransformer() ? valueTransformer()->transformedValue(*stored) : *stored) : QVariant();
        validation.ask(object,
                       stored && valueTransformer() ? valueTransformer()->reverseTransformedValue(value) : value);
    }
    return validation.isRefused() ? ZelRefusalMark::text(validation) : QString();
}

QString ZelInspectorProperty::refusalOfShown(const QVariant &value) const
{
    if (const ZelNumberChange *change = ZelNumberChange::of(value))
        return refusalOfChange(*change);
    const bool isReversible = valueTransformer() && valueTransformer()->allowsReverseTransformation();
    return refusalOf(isReversible ? valueTransformer()->reverseTransformedValue(value) : value);
}

QString ZelInspectorProperty::refusalOfChange(const ZelNumberChange &change) const
{
    ZelOwnNumbers own(m_owner, m_keyPath, valueTransformer());
    const auto count = qsizetype(own.numbers()->size());
    const auto domain = ZelPropertyDomain::ofKeyPath(m_owner, m_keyPath);
    const bool takesAll = !valueTransformer() && domain.takesAllNumbers();
    if (takesAll && own.areExact() && count > 0) {
        const ZelNumberChange::Numbers results = change.numbers(own.numbers());
        const auto [least, greatest] = std::minmax_element(results->begin(), results->end());
        const bool areNumbers =
            std::all_of(results->begin(), results->end(), [](double r) { return std::isfinite(r); });
        // A limit that holds for the least and the greatest result holds for all.
        if (areNumbers && refusalOfResult(*least).isNull() && refusalOfResult(*greatest).isNull())
            return {};
    }
    const bool isReversible = valueTransformer() && valueTransformer()->allowsReverseTransformation();
    QString firstReason;
    qsizetype refusing = 0;
    for (qsizetype i = 0; i < count; ++i) {
        const QVariant number = own.changed(change, i);
        QString reason;
        if (!number.isValid())
            reason = own.isInexact(change, i) ? ZelLocalizedString("The result would not be exact.")
                                              : ZelLocalizedString("The result is not a number.");
        else if (!takesAll)
            reason = ZelValueRefusal::reason(
                domain, isReversible ? valueTransformer()->reverseTransformedValue(number) : number,
                valueTransformer());
        if (reason.isNull())
            reason = refusalOfResult(number.toDouble());
        if (!reason.isNull() && refusing++ == 0)
            firstReason = reason;
    }
    if (refusing == 0 || count == 1)
        return firstReason;
    return ZelLocalizedString("%1 This concerns %2 of %3 objects.").arg(firstReason).arg(refusing).arg(count);
}

// Telling the user

/// Answers false if models have refused the value: nothing was written then, and the reason is shown.
bool ZelInspectorProperty::writeUnlessRefused(const std::function<void()> &write)
{
    const QPointer<ZelInspectorProperty> alive(this);
    m_wasRefused = false;
    try {
        write();
        return true;
    } catch (const ZelRefusedEditException &exception) {
        if (!alive)
            return false;
        m_wasRefused = true;
        showRefusal(ZelRefusalMark::text(exception.validation()));
        return false;
    }
}

/// The control that has the focus, or else the main one: what it shows is not what was entered. Null if there is none.
QWidget *ZelInspectorProperty::controlToMark()
{
    if (!isViewInstalled())
        return nullptr;
    updateViewInvocation().schedule();
    QWidget *focus = QApplication::focusWidget();
    QWidget *control = focus && contains(focus) ? focus : controlsNamedByRow().value(0);
    // The editor within a text field, or of a table's cell, is about to go.
    for (QWidget *outer = control; outer && outer != view(); outer = outer->parentWidget()) {
        if (qobject_cast<QAbstractScrollArea *>(outer) || qobject_cast<ZelGrowingTextField *>(outer))
            control = outer;
    }
    return control;
}

void ZelInspectorProperty::showRefusal(const QString &reason)
{
    QWidget *control = controlToMark();
    if (!control)
        return;
    if (reason.isEmpty())
        ZelRefusalMark::flash(control);
    else
        ZelRefusalMark::show(control, reason);
}

void ZelInspectorProperty::flashUnlessKept(const ValueBlock &block)
{
    if (m_wasRefused || !isViewInstalled() || !m_owner)
        return;
    const QVariant several = QVariant::fromValue(ZelMultipleValuesMarker);
    const QVariant refused = combinedReflectedValue([&](const QVariant &kept) {
        return ZelIsControllerMarker(kept) || ZelKeptValueCheck::isKept(block(kept), kept)
                   ? QVariant::fromValue(ZelNoSelectionMarker)
                   : several; // which ends the walk over the objects
    });
    if (ZelIsMarker(refused, ZelMultipleValuesMarker))
        showRefusal({});
}
