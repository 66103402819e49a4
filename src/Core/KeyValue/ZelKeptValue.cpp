// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeptValue.h"

#include <QSequentialIterable>
#include <algorithm>

namespace {

bool isObject(QMetaType type)
{
    return type.flags().testFlag(QMetaType::PointerToQObject);
}

} // namespace

bool ZelKeptValue::Objects::haveDied() const
{
    return std::any_of(entries.begin(), entries.end(), [](const auto &entry) { return entry.second.hasDied(); });
}

/// Whether the type is a pointer to an object or a list of pointers. The type of a list does not say what its elements
/// are, but its name does: it ends with "*>".
bool ZelKeptValue::mayCustomTypeHoldObjects(QMetaType type)
{
    if (type.flags().testFlag(QMetaType::IsPointer) || isObject(type))
        return isObject(type);
    return QByteArrayView(type.name()).endsWith("*>") &&
           QMetaType::canConvert(type, QMetaType::fromType<QSequentialIterable>());
}

void ZelKeptValue::watchObjects()
{
    if (isObject(m_value.metaType())) {
        watch(0, m_value);
        return;
    }
    const auto elements = m_value.value<QSequentialIterable>();
    qsizetype place = 0;
    for (const QVariant &element : elements)
        watch(place++, element);
    if (m_objects)
        m_objects->isList = true;
}

void ZelKeptValue::watch(qsizetype place, const QVariant &element)
{
    QObject *object = isObject(element.metaType()) ? element.value<QObject *>() : nullptr;
    if (!object)
        return;
    if (!m_objects)
        m_objects = new Objects;
    m_objects->entries.emplace_back(place, ZelObjectWatch(object));
}

void ZelKeptValue::forgetDead() const
{
    if (!m_objects->isList) {
        m_value = QVariant();
        return;
    }
    auto elements = m_value.view<QSequentialIterable>();
    const QMetaType type = elements.metaContainer().valueMetaType();
    const QVariant none = type == QMetaType::fromType<QVariant>() ? QVariant() : QVariant(type);
    for (const auto &[place, object] : m_objects->entries)
        if (object.hasDied())
            elements.set(place, none);
}
