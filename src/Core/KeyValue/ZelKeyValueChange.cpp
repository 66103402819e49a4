// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueChange.h"

#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"

namespace {

/// The elements of a collection; nothing for an absent value.
std::optional<QVariantList> elementsOf(const QVariant &value)
{
    if (ZelIsNull(value))
        return std::nullopt;
    if (!ZelIsList(value))
        throw ZelException(QStringLiteral("Illegal state"), QStringLiteral("Unsupported type of value"));
    return ZelList(value);
}

bool contains(const QVariantList &list, const QVariant &value)
{
    return std::any_of(list.begin(), list.end(), [&](const QVariant &element) { return ZelEqual(element, value); });
}

/// Answers each element of the first list that is not in the second, once. Objects are looked up in a hash, other
/// values are compared one by one.
QVariantList difference(const QVariantList &first, const QVariantList &second)
{
    QSet<const QObject *> objects;
    QVariantList values;
    for (const QVariant &value : second) {
        if (const QObject *object = ZelObject(value))
            objects.insert(object);
        else
            values.append(value);
    }
    QVariantList result;
    for (const QVariant &value : first) {
        const QObject *object = ZelObject(value);
        if (object ? objects.contains(object) : contains(values, value))
            continue;
        result.append(value);
        if (object)
            objects.insert(object);
        else
            values.append(value);
    }
    return result;
}

QVariant withoutNull(const QVariant &value)
{
    return ZelIsNull(value) ? QVariant() : value;
}

std::optional<ZelKeptValue> kept(const std::optional<QVariant> &value)
{
    return value ? std::optional(ZelKeptValue(*value)) : std::nullopt;
}

} // namespace

bool ZelKeyValueChangeSource::differ(const ZelKeptValue &oldValue, const QVariant &newValue)
{
    if (oldValue.hasDied())
        return true;
    const int type = newValue.typeId();
    if (type < QMetaType::User && oldValue.value().typeId() == type) // the null object is of a type of its own
        return ZelNotEqual(oldValue.value(), newValue);
    const bool isNone = ZelIsNull(newValue);
    return ZelIsNull(oldValue.value()) != isNone || (!isNone && ZelNotEqual(oldValue.value(), newValue));
}

ZelKeyValueChange::ZelKeyValueChange(ZelKeyValueChangeKind kind, const std::optional<QVariant> &oldValue,
                                     const std::optional<QVariant> &newValue, const std::optional<ZelIndexSet> &indexes,
                                     bool isPrior)
    : m_kind(kind)
    , m_isPrior(isPrior)
    , m_new(kept(newValue))
    , m_old(kept(oldValue))
    , m_indexes(indexes)
{
}

ZelKeyValueChange::ZelKeyValueChange(const ZelKeyValueChange &other)
{
    *this = other;
}

ZelKeyValueChange &ZelKeyValueChange::operator=(const ZelKeyValueChange &other)
{
    if (this == &other)
        return *this;
    m_kind = other.m_kind;
    m_isPrior = other.m_isPrior;
    m_new = !other.hasNew()  ? std::nullopt
            : other.m_source ? std::optional(ZelKeptValue(other.m_source->newValue()))
                             : other.m_new;
    m_old = !other.hasOld() ? std::nullopt : other.m_source ? std::optional(other.m_source->oldValue()) : other.m_old;
    m_indexes = other.keyValueChangeIndexes();
    m_options = 0;
    m_source = nullptr;
    m_sharedIndexes = nullptr;
    return *this;
}

QVariant ZelKeyValueChange::keyValueChangeNew() const
{
    if (!hasNew())
        return {};
    return withoutNull(m_source ? m_source->newValue() : m_new->value());
}

QVariant ZelKeyValueChange::keyValueChangeOld() const
{
    if (!hasOld())
        return {};
    return withoutNull(m_source ? m_source->oldValue().value() : m_old->value());
}

std::optional<ZelIndexSet> ZelKeyValueChange::keyValueChangeIndexes() const
{
    return m_sharedIndexes ? std::optional(*m_sharedIndexes) : m_indexes;
}

bool ZelKeyValueChange::areValuesDifferent() const
{
    const bool hasDied = (m_old && m_old->hasDied()) || (m_new && m_new->hasDied());
    return hasDied || ZelNotEqual(keyValueChangeOld(), keyValueChangeNew());
}

std::optional<QVariantList> ZelKeyValueChange::keyValueChangeAddedObjects() const
{
    const auto added = elementsOf(keyValueChangeNew());
    const auto former = elementsOf(keyValueChangeOld());
    return added ? std::optional(difference(*added, former.value_or(QVariantList()))) : std::nullopt;
}

std::optional<QVariantList> ZelKeyValueChange::keyValueChangeRemovedObjects() const
{
    const auto removed = elementsOf(keyValueChangeOld());
    const auto present = elementsOf(keyValueChangeNew());
    return removed ? std::optional(difference(*removed, present.value_or(QVariantList()))) : std::nullopt;
}

void ZelKeyValueChange::mergeLaterChange(const ZelKeyValueChange &later)
{
    m_kind = later.m_kind;
    m_isPrior = m_isPrior || later.m_isPrior;
    if (later.hasNew())
        m_new = ZelKeptValue(later.keyValueChangeNew());
    if (const auto indexes = later.keyValueChangeIndexes())
        m_indexes = indexes;
}
