// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"

#include "Observation/ZelKeyValueObservation.h"
#include "Observation/ZelObservations.h"
#include "Platform/Runtime/ZelKeyValueChange.h"
#include "Platform/Runtime/ZelKeyValueCoding.h"
#include "Platform/Runtime/ZelValues.h"

namespace {
const char ZelRebuildObservationContext = 0;
}

ZelInspectorEnumerationProperty::ZelInspectorEnumerationProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

ZelInspectorEnumerationProperty::~ZelInspectorEnumerationProperty()
{
    uninstall();
}

void ZelInspectorEnumerationProperty::setOptionGroups(const QList<ZelOptionGroup *> &groups)
{
    if (groups == m_optionGroups)
        return;
    m_optionGroups = groups;
    for (ZelOptionGroup *group : groups) {
        if (!group->parent())
            group->setParent(this);
    }
    Q_EMIT optionGroupsChanged();
}

void ZelInspectorEnumerationProperty::startObservationForOptionGroup(ZelOptionGroup *group)
{
    const auto rebuild = [property = QPointer<ZelInspectorEnumerationProperty>(this)](ZelBlockObservation *,
                                                                                      const ZelKeyValueChange &) {
        if (property)
            property->rebuildView();
    };
    for (const QString &keyPath : {group->enumeratedDisplayValuesKeyPath, group->enumeratedValuesKeyPath}) {
        if (!keyPath.isEmpty() && owner())
            ZelObservations(group).addObservationWithObject(owner(), keyPath, 0, rebuild,
                                                            &ZelRebuildObservationContext);
    }
}

void ZelInspectorEnumerationProperty::stopObservationForOptionGroup(ZelOptionGroup *group)
{
    ZelObservations(group).removeAllObservationsForContext(&ZelRebuildObservationContext);
}

void ZelInspectorEnumerationProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    const QPointer<ZelInspectorEnumerationProperty> self(this);
    for (const QString &keyPath : {m_enumeratedDisplayValuesKeyPath, m_enumeratedValuesKeyPath}) {
        if (keyPath.isEmpty() || !owner())
            continue;
        ZelObservations(this).addObservationWithObject(
            owner(), keyPath, 0,
            [self](ZelBlockObservation *, const ZelKeyValueChange &) {
                if (self)
                    self->rebuildView();
            },
            &ZelRebuildObservationContext);
    }
    ZelObservations(this).addObservationWithObject(
        this, "optionGroups", ZelKeyValueObservingOptionEqualCheck,
        [self](ZelBlockObservation *, const ZelKeyValueChange &change) {
            if (!self)
                return;
            for (const QVariant &group : change.keyValueChangeAddedObjects().value_or(QVariantList()))
                self->startObservationForOptionGroup(group.value<ZelOptionGroup *>());
            for (const QVariant &group : change.keyValueChangeRemovedObjects().value_or(QVariantList()))
                self->stopObservationForOptionGroup(group.value<ZelOptionGroup *>());
            self->rebuildView();
        },
        &ZelRebuildObservationContext);
    for (ZelOptionGroup *group : std::as_const(m_optionGroups))
        startObservationForOptionGroup(group);
    rebuildView();
}

void ZelInspectorEnumerationProperty::viewWillUninstall()
{
    ZelInspectorProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&ZelRebuildObservationContext);
    for (ZelOptionGroup *group : std::as_const(m_optionGroups))
        stopObservationForOptionGroup(group);
    cancelUpdateView();
}

QList<ZelInspectorEnumerationProperty::Choice>
ZelInspectorEnumerationProperty::choicesAt(const QString &displayValuesKeyPath, const QString &valuesKeyPath) const
{
    if (displayValuesKeyPath.isEmpty() || valuesKeyPath.isEmpty())
        return {};
    const QVariantList displayValues = ZelList(ZelValueForKeyPath(owner(), displayValuesKeyPath));
    const QVariantList values = ZelList(ZelValueForKeyPath(owner(), valuesKeyPath));
    if (displayValues.size() != values.size())
        return {};
    QList<Choice> choices;
    choices.reserve(values.size());
    for (qsizetype i = 0; i < values.size(); ++i) {
        const QVariant &display = displayValues.at(i);
        Choice choice;
        if (display.typeId() == QMetaType::QString)
            choice.title = display.toString();
        else if (display.canConvert<QIcon>())
            choice.image = display.value<QIcon>();
        choice.value = ZelIsNull(values.at(i)) ? QVariant() : values.at(i);
        choices.append(choice);
    }
    return choices;
}

QList<ZelInspectorEnumerationProperty::Choice> ZelInspectorEnumerationProperty::ownChoices() const
{
    return choicesAt(m_enumeratedDisplayValuesKeyPath, m_enumeratedValuesKeyPath);
}

QList<ZelInspectorEnumerationProperty::Choice>
ZelInspectorEnumerationProperty::choicesOfGroup(const ZelOptionGroup *group) const
{
    QList<Choice> choices = choicesAt(group->enumeratedDisplayValuesKeyPath, group->enumeratedValuesKeyPath);
    for (const ZelOption *option : group->options())
        choices.append({option->title, option->image, option->value, option->hidden, option->enabled});
    return choices;
}

QVariant ZelInspectorEnumerationProperty::reducedValue() const
{
    if (!m_bitMask)
        return reflectedValue();
    return combinedReflectedValue(
        [mask = *m_bitMask](const QVariant &value) { return valueForValueBitMask(value, mask); });
}

void ZelInspectorEnumerationProperty::writeChoice(const QVariant &value, QObject *sender)
{
    const QPointer<ZelInspectorEnumerationProperty> alive(this);
    {
        const UpdatingValues updating(this);
        updateReflectedValues([mask = m_bitMask, value](const QVariant &old) -> QVariant {
            return mask ? QVariant((old.toULongLong() & ~*mask) | value.toULongLong()) : value;
        });
    }
    if (alive)
        ZelInspectorProperty::userDidChangeValue(sender);
}
