// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/Values/ZelValues.h"

#include <optional>

/// Reads and writes one key path of many objects. The accessor is looked up again only when the class changes.
class ZelClassAccessors
{
public:
    explicit ZelClassAccessors(const ZelKeyPath &path)
        : m_path(path)
        , m_key(path.first())
        , m_isSingleKey(path.isSingleKey())
    {
    }

    /// The accessor of the path's first key. Null for an object that lacks it, and for one that answers keys itself.
    const ZelPropertyAccessor *of(const QObject *object) { return of(object, object->metaObject()); }
    /// The same if the object's class is known already.
    const ZelPropertyAccessor *of(const QObject *object, const QMetaObject *metaObject)
    {
        if (metaObject == m_class)
            return m_accessor;
        const bool answersItself = ZelPropertyAccessor::interfaceOf(object);
        const ZelPropertyAccessor *accessor = answersItself ? nullptr : ZelPropertyAccessor::find(object, m_key);
        if (accessor && !accessor->isOfOneObject()) {
            m_class = metaObject;
            m_accessor = accessor;
            m_type = accessor->type();
            m_isAnnounced = m_type.isValid() && !accessor->isSilent();
        }
        return accessor;
    }

    /// The value at the path; nothing for an object that lacks its first key.
    std::optional<QVariant> read(const QObject *object)
    {
        const ZelPropertyAccessor *accessor = of(object);
        if (accessor && m_isSingleKey)
            return ZelPresent(accessor->read(object));
        if (!accessor && !ZelHasKey(object, m_key))
            return std::nullopt;
        return ZelValueForKeyPath(object, m_path);
    }

    /// Reads into a value of that type. Does nothing and answers false where writeTyped would.
    bool readTyped(const QObject *object, QMetaType type, void *value)
    {
        const ZelPropertyAccessor *accessor = announced(object, type);
        return accessor && accessor->readTyped(object, value);
    }

    /// Stores the value as ZelSetValueForKeyPath does.
    void write(QObject *object, const QVariant &value)
    {
        if (ZelIsNull(value) || !writeTyped(object, value.metaType(), value.constData()))
            ZelSetValueForKeyPath(object, value, m_path);
    }

    /// Stores a value without a QVariant. Does nothing and answers false unless the path is one key, of a property of
    /// exactly that type which announces its changes itself.
    bool writeTyped(QObject *object, QMetaType type, const void *value)
    {
        const ZelPropertyAccessor *accessor = announced(object, type);
        return accessor && accessor->writeTyped(object, value);
    }

    /// The accessor of a single key whose values are of exactly that type and announce their changes; else null.
    const ZelPropertyAccessor *announced(const QObject *object, QMetaType type)
    {
        const ZelPropertyAccessor *accessor = m_isSingleKey ? of(object) : nullptr;
        return accessor && accessor == m_accessor && m_isAnnounced && m_type == type ? accessor : nullptr;
    }

private:
    ZelKeyPath m_path;
    ZelKey m_key;
    bool m_isSingleKey;
    const QMetaObject *m_class = nullptr;
    const ZelPropertyAccessor *m_accessor = nullptr;
    QMetaType m_type;
    bool m_isAnnounced = false;
};
