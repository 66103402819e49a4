// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelEnumerationKeys.h"
#include "Core/Values/private/ZelValueConversion.h"
#include "Inspector/Description/ZelInspectorDescription.h"
#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"
#include "Resources/ZelLocalizedString.h"

#include <QRegularExpression>
#include <algorithm>

// The part of the enumeration editors that offers the keys which Qt knows, and edits flags.

namespace {

/// The one type that the properties have, or that of the value if they may hold any.
QMetaType typeOf(const ZelPropertyDomain &domain, const QVariant &modelValue)
{
    const auto &types = domain.types();
    const bool isOfAny = types.isEmpty() || (types.size() == 1 && types.at(0).id() == QMetaType::QVariant);
    if (isOfAny)
        return ZelIsNull(modelValue) || ZelIsControllerMarker(modelValue) ? QMetaType() : modelValue.metaType();
    return types.size() == 1 ? types.at(0) : QMetaType::fromType<void>();
}

} // namespace

// The keys

bool ZelInspectorEnumerationProperty::isWithoutOptions() const
{
    return m_optionGroups.isEmpty() && !m_described && m_enumeratedDisplayValuesKeyPath.isEmpty() &&
           m_enumeratedValuesKeyPath.isEmpty();
}

/// Finds the type whose keys are offered. While nothing tells a type, as without a selection, the former one stays.
void ZelInspectorEnumerationProperty::offerKeys(const QVariant &modelValue)
{
    if (!isWithoutOptions())
        return;
    const QMetaType type = typeOf(ZelPropertyDomain::ofKeyPath(owner(), keyPath()), modelValue);
    if (!type.isValid() || type == m_offeredType)
        return;
    const bool hasKeys = !ZelEnumerationKeys::keys(type).isEmpty();
    m_offeredType = hasKeys ? type : QMetaType();
    m_offersFlags = hasKeys && ZelEnumerationKeys::isFlags(type);
    if (!hasKeys && !place().isEmpty() && !std::exchange(m_hasWarned, true))
        ZelLogWarning(
            QStringLiteral("The editor has no options, and the property \"%1\" is of no type whose keys, of up "
                           "to 32 bits, Qt knows (Q_ENUM)")
                .arg(keyPathByStripingControllerSelectionPrefix(keyPath())),
            place());
}

QList<ZelInspectorEnumerationProperty::Choice> ZelInspectorEnumerationProperty::offeredChoices() const
{
    QList<Choice> choices;
    const QList<ZelEnumerationKeys::Key> keys = ZelEnumerationKeys::keys(m_offeredType);
    for (const ZelEnumerationKeys::Key &key : keys)
        choices.append(
            {ZelLocalizedString(ZelInspectorDescription::titleForName(key.name)), {}, key.value, {}, true, {}, {}});
    return choices;
}

QList<ZelInspectorEnumerationProperty::Choice> ZelInspectorEnumerationProperty::allChoices() const
{
    QList<Choice> choices = ownChoices();
    for (const ZelOptionGroup *group : optionGroups())
        choices += choicesOfGroup(group);
    return choices;
}

// Flags

std::optional<quint64> ZelInspectorEnumerationProperty::editedBits() const
{
    if (m_bitMask || !choosesSeveral())
        return m_bitMask;
    quint64 bits = 0;
    const QList<Choice> flags = allChoices();
    for (const Choice &flag : flags)
        bits |= unsignedValue(flag.value);
    return bits;
}

bool ZelInspectorEnumerationProperty::keepsType(QMetaType type) const
{
    return !choosesSeveral() || !ZelEnumerationKeys::isOfSingleKeys(type);
}

Qt::CheckState ZelInspectorEnumerationProperty::Bits::stateOf(const Choice &flag) const
{
    const quint64 bits = unsignedValue(flag.value);
    if (!isKnown || (ofAny & bits) == 0)
        return Qt::Unchecked;
    return (ofAll & bits) == bits ? Qt::Checked : Qt::PartiallyChecked;
}

ZelInspectorEnumerationProperty::Bits ZelInspectorEnumerationProperty::bitsOfObjects() const
{
    Bits bits;
    combinedReflectedValue([&bits](const QVariant &value) {
        if (!ZelIsControllerMarker(value)) {
            bits.isKnown = bits.isKnown || !ZelIsNull(value);
            bits.ofAll &= unsignedValue(value);
            bits.ofAny |= unsignedValue(value);
        }
        return QVariant::fromValue(ZelNoSelectionMarker); // goes on to the next object
    });
    return bits;
}

QString ZelInspectorEnumerationProperty::textOfFlags(const QVariant &value) const
{
    quint64 rest = unsignedValue(value) & m_bitMask.value_or(~quint64(0));
    QStringList titles;
    const QList<Choice> flags = allChoices();
    for (const Choice &flag : flags) {
        const quint64 bits = unsignedValue(flag.value);
        if (bits == 0 || (unsignedValue(value) & bits) != bits)
            continue;
        titles.append(flag.title);
        rest &= ~bits;
    }
    if (rest != 0)
        titles.append(u"0x" + QString::number(rest, 16));
    return titles.isEmpty() ? ZelLocalizedString("None") : titles.join(QStringLiteral(", "));
}

/// Titles or keys with commas or bars between them.
std::optional<QVariant> ZelInspectorEnumerationProperty::flagsIn(const QString &text) const
{
    static const QRegularExpression separator(QStringLiteral("\\s*[,|;\\n]\\s*"));
    const QStringList words = text.trimmed().split(separator, Qt::SkipEmptyParts);
    const QList<Choice> flags = allChoices();
    quint64 bits = 0;
    for (const QString &word : words) {
        const auto flag = std::find_if(flags.begin(), flags.end(), [&](const Choice &known) {
            return known.title.compare(word, Qt::CaseInsensitive) == 0;
        });
        if (flag == flags.end() && words.size() == 1 && word == ZelLocalizedString("None"))
            break;
        if (flag == flags.end())
            return std::nullopt;
        bits |= unsignedValue(flag->value);
    }
    return words.isEmpty() ? std::nullopt : std::optional(ZelValueConversion::ofBits(bits, m_offeredType));
}

void ZelInspectorEnumerationProperty::writeFlag(const QVariant &flag, bool isOn, QObject *sender)
{
    writeValues(
        [bits = unsignedValue(flag), isOn](const QVariant &old) {
            if (ZelEnumerationKeys::isOfSingleKeys(old.metaType())) // in a property of any type
                return old;
            const quint64 value = unsignedValue(old);
            return ZelValueConversion::ofBits(isOn ? value | bits : value & ~bits, old.metaType());
        },
        sender);
}
