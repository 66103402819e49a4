// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/KeyValue/ZelKeyValueChange.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Selection/ZelValueSummary.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelEnumerationKeys.h"
#include "Core/Values/private/ZelValueConversion.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelDescribedOptions.h"
#include "Inspector/Properties/private/ZelEditorAttributes.h"
#include "Inspector/Properties/private/ZelOptionValue.h"
#include "Observation/ZelKeyValueObservation.h"
#include "Observation/ZelObservations.h"
#include "Resources/ZelLocalizedString.h"

#include <algorithm>

namespace {
const char ZelRebuildObservationContext = 0;

/// The image as an icon. Qt does not convert pixmaps, images and bitmaps to icons by itself.
QIcon imageOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QPixmap:
    case QMetaType::QImage:
    case QMetaType::QBitmap:
        return QIcon(value.value<QPixmap>());
    default:
        return value.value<QIcon>(); // null for what is no image
    }
}

QString noChoice()
{
    return ZelLocalizedString("This is none of the choices.");
}

} // namespace

ZelInspectorEnumerationProperty::ZelInspectorEnumerationProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

void ZelInspectorEnumerationProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorProperty::configure(configuration);
    setEditable(configuration.booleanValueNamed(u"editable", true));
    setBitMask(ZelEditorAttributes::bits(configuration, u"bitMask"));
    setEnumeratedValuesKeyPath(configuration.keyPathValueNamed(u"enumeratedValuesKeyPath"));
    setEnumeratedDisplayValuesKeyPath(configuration.keyPathValueNamed(u"enumeratedDisplayValuesKeyPath"));
}

ZelInspectorEnumerationProperty::~ZelInspectorEnumerationProperty()
{
    uninstall();
}

void ZelInspectorEnumerationProperty::setBitMaskValue(const QVariant &value)
{
    m_bitMask = ZelIsNumber(value) ? std::optional(unsignedValue(value)) : std::nullopt;
}

QList<ZelOptionGroup *> ZelInspectorEnumerationProperty::optionGroups() const
{
    makeDescribedGroups();
    QList<ZelOptionGroup *> living(m_optionGroups.begin(), m_optionGroups.end());
    living.removeAll(nullptr);
    return living;
}

void ZelInspectorEnumerationProperty::setOptionGroups(const QList<ZelOptionGroup *> &groups)
{
    QList<QPointer<ZelOptionGroup>> assigned(groups.begin(), groups.end());
    assigned.removeAll(nullptr);
    makeDescribedGroups();
    if (assigned == m_optionGroups)
        return;
    const QList<ZelOptionGroup *> former = optionGroups();
    m_optionGroups = assigned;
    for (ZelOptionGroup *group : optionGroups()) {
        if (!group->parent())
            group->setParent(this);
    }
    if (isViewInstalled()) {
        for (ZelOptionGroup *group : former)
            stopObservationForOptionGroup(group);
        for (ZelOptionGroup *group : optionGroups())
            startObservationForOptionGroup(group);
        rebuildView();
    }
    Q_EMIT optionGroupsChanged();
}

void ZelInspectorEnumerationProperty::setDescribedOptions(const ZelDescribedOptions::Ptr &options)
{
    m_described = options;
    Q_EMIT optionGroupsChanged();
}

void ZelInspectorEnumerationProperty::makeDescribedGroups() const
{
    const ZelDescribedOptions::Ptr described = std::exchange(m_described, {});
    if (!described)
        return;
    const auto groups = described->makeGroups(const_cast<ZelInspectorEnumerationProperty *>(this));
    m_optionGroups.append(QList<QPointer<ZelOptionGroup>>(groups.begin(), groups.end()));
}

void ZelInspectorEnumerationProperty::startObservationForOptionGroup(ZelOptionGroup *group)
{
    const auto rebuild = [property = QPointer<ZelInspectorEnumerationProperty>(this)](ZelBlockObservation *,
                                                                                      const ZelKeyValueChange &) {
        if (property)
            ZelExceptionReporter::passOn(property.data(), [&] { property->rebuildView(); });
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
                    ZelExceptionReporter::passOn(self.data(), [&] { self->rebuildView(); });
            },
            &ZelRebuildObservationContext);
    }
    for (ZelOptionGroup *group : optionGroups())
        startObservationForOptionGroup(group);
    offerKeys(reflectedValue());
    rebuildView();
}

void ZelInspectorEnumerationProperty::viewWillUninstall()
{
    ZelInspectorProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&ZelRebuildObservationContext);
    for (ZelOptionGroup *group : optionGroups())
        stopObservationForOptionGroup(group);
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
        else
            choice.image = imageOf(display);
        choice.value = ZelIsNull(values.at(i)) ? QVariant() : values.at(i);
        choices.append(choice);
    }
    return choices;
}

QList<ZelInspectorEnumerationProperty::Choice> ZelInspectorEnumerationProperty::ownChoices() const
{
    return isWithoutOptions() ? offeredChoices()
                              : choicesAt(m_enumeratedDisplayValuesKeyPath, m_enumeratedValuesKeyPath);
}

QList<ZelInspectorEnumerationProperty::Choice>
ZelInspectorEnumerationProperty::choicesOfGroup(const ZelOptionGroup *group) const
{
    QList<Choice> choices = choicesAt(group->enumeratedDisplayValuesKeyPath, group->enumeratedValuesKeyPath);
    for (const ZelOption *option : group->options())
        choices.append({option->title, option->image, ZelOptionValue::forType(m_modelType, option->value, option->text),
                        option->hidden, option->enabled, option->toolTip, option->whatsThis});
    return choices;
}

/// The type on which the options depend, of the first value that tells it.
QMetaType ZelInspectorEnumerationProperty::typeOfSeveral() const
{
    const ZelKeyPath path = selectedKeyPath();
    const QList<QPointer<QObject>> objects = selectedObjects();
    QMetaType type;
    for (auto object = objects.begin(); object != objects.end() && !type.isValid(); ++object) {
        if (*object)
            type = ZelOptionValue::typeOf(ZelValueForKeyPath(object->data(), path));
    }
    return type;
}

void ZelInspectorEnumerationProperty::adaptOptionsTo(const QVariant &modelValue)
{
    const QMetaType formerlyOffered = m_offeredType;
    offerKeys(modelValue);
    if (m_offeredType != formerlyOffered)
        rebuildView();
    const bool isOfSeveral = ZelIsMarker(modelValue, ZelMultipleValuesMarker) && !m_modelType.isValid();
    const QMetaType type = isOfSeveral ? typeOfSeveral() : ZelOptionValue::typeOf(modelValue);
    if (!type.isValid() || type == m_modelType)
        return;
    const QMetaType former = std::exchange(m_modelType, type);
    bool changes = false;
    for (const ZelOptionGroup *group : optionGroups()) {
        for (const ZelOption *option : group->options())
            changes |= ZelNotEqual(ZelOptionValue::forType(former, option->value, option->text),
                                   ZelOptionValue::forType(type, option->value, option->text));
        ZelOptionValue::warnOfTexts(group, type);
    }
    if (changes)
        rebuildView();
}

std::optional<ZelInspectorEnumerationProperty::Choice>
ZelInspectorEnumerationProperty::findChoice(const std::function<bool(const Choice &)> &isMeant) const
{
    const QList<Choice> choices = allChoices();
    const auto found = std::find_if(choices.cbegin(), choices.cend(), isMeant);
    return found == choices.cend() ? std::nullopt : std::optional(*found);
}

QString ZelInspectorEnumerationProperty::textOfValue(const QVariant &modelValue) const
{
    const QVariant shown = transformedForward(modelValue);
    if (choosesSeveral())
        return textOfFlags(shown);
    const auto choice = findChoice([&](const Choice &known) { return ZelEqual(known.value, shown); });
    return choice && !choice->title.isEmpty() ? choice->title : ZelInspectorProperty::textOfValue(modelValue);
}

bool ZelInspectorEnumerationProperty::readText(const QString &text, QVariant *modelValue, QString *error) const
{
    if (const auto flags = choosesSeveral() ? flagsIn(text) : std::nullopt) {
        *modelValue = transformedBack(*flags);
        return true;
    }
    const QString title = text.trimmed();
    const auto choice = findChoice(
        [&](const Choice &known) { return known.title.compare(title, Qt::CaseInsensitive) == 0 && !title.isEmpty(); });
    if (choice) {
        *modelValue = transformedBack(choice->value);
        return true;
    }
    const bool isRead = ZelInspectorProperty::readText(text, modelValue, error);
    if (!isRead)
        *error = noChoice();
    return isRead;
}

QStringList ZelInspectorEnumerationProperty::searchTexts() const
{
    if (m_described)
        return m_described->titles();
    QStringList texts;
    for (const ZelOptionGroup *group : optionGroups()) {
        for (const ZelOption *option : group->options())
            texts.append(option->title);
    }
    return texts;
}

QString ZelInspectorEnumerationProperty::refusalOfPasted(const QVariant &modelValue) const
{
    QVariant shown = transformedForward(modelValue);
    if (choosesSeveral() && (!ZelIsNumber(shown) || (unsignedValue(shown) & ~editedBits().value_or(0)) != 0))
        return noChoice();
    if (choosesSeveral())
        return ZelInspectorProperty::refusalOfPasted(modelValue);
    if (m_bitMask)
        shown = valueForValueBitMask(shown, *m_bitMask);
    if (!findChoice([&](const Choice &known) { return known.enabled && ZelEqual(known.value, shown); }))
        return noChoice();
    return ZelInspectorProperty::refusalOfPasted(modelValue);
}

QVariant ZelInspectorEnumerationProperty::reducedValue() const
{
    if (!m_bitMask)
        return reflectedValue();
    return combinedReflectedValue(
        [mask = *m_bitMask](const QVariant &value) { return valueForValueBitMask(value, mask); });
}

ZelValueSummary ZelInspectorEnumerationProperty::valueSummary() const
{
    const ZelValueSummary stored = ZelInspectorProperty::valueSummary();
    return m_bitMask ? stored.mapped([this](const QVariant &value) { return valueForValueBitMask(value, *m_bitMask); })
                     : stored;
}

void ZelInspectorEnumerationProperty::writeChoice(const QVariant &value, QObject *sender)
{
    writeValues(
        [mask = m_bitMask, value](const QVariant &old) -> QVariant {
            if (!mask)
                return value;
            return ZelValueConversion::ofBits((unsignedValue(old) & ~*mask) | unsignedValue(value), old.metaType());
        },
        sender);
}

void ZelInspectorEnumerationProperty::writeValues(const ValueBlock &changed, QObject *sender)
{
    const QPointer<ZelInspectorEnumerationProperty> alive(this);
    {
        const UpdatingValues updating(this);
        updateReflectedValues(changed);
    }
    if (alive)
        flashUnlessKept(changed);
    if (alive)
        ZelInspectorProperty::userDidChangeValue(sender);
}
