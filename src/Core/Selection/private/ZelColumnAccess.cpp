// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelColumnAccess.h"

#include <cstring>

ZelColumnAccess::ZelColumnAccess(ZelKey key, QMetaType type)
    : m_key(key)
    , m_type(type)
    , m_isPossible(ZelColumnStore::isAnyRegistered() && type.isValid() &&
                   !type.flags().testFlag(QMetaType::NeedsDestruction))
{
}

qsizetype ZelColumnAccess::takeObjects(const QPointer<QObject> *objects, qsizetype most)
{
    m_objects.clear();
    const QMetaObject *metaObject = objects[0] ? objects[0]->metaObject() : nullptr;
    m_store = metaObject ? ZelColumnStore::find(metaObject) : nullptr;
    if (!m_store)
        return 0;
    for (qsizetype i = 0; i < most && objects[i] && objects[i]->metaObject() == metaObject; ++i)
        m_objects.push_back(objects[i].data());
    return qsizetype(m_objects.size());
}

const std::byte *ZelColumnAccess::read()
{
    m_values.resize(m_objects.size() * size_t(m_type.sizeOf()));
    const std::span<const QObject *const> objects(m_objects.data(), m_objects.size());
    m_isPossible = m_store->readColumn(m_key, m_type, objects, m_values.data());
    return m_isPossible ? m_values.data() : nullptr;
}

bool ZelColumnAccess::write(const void *values)
{
    return m_isPossible = m_store->writeColumn(m_key, m_type, m_objects, values);
}

bool ZelColumnAccess::writeToAll(const void *value)
{
    const auto size = size_t(m_type.sizeOf());
    m_values.resize(m_objects.size() * size);
    for (size_t i = 0; i < m_objects.size(); ++i)
        std::memcpy(m_values.data() + i * size, value, size);
    return write(m_values.data());
}
