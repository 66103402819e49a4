// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelObjectWatch.h"

#include <QExplicitlySharedDataPointer>
#include <QSharedData>
#include <QVariant>

#include <utility>
#include <vector>

/// A value that is remembered. An object, or one in a list, may die meanwhile, and another take its place in memory.
///
/// Whatever outlives the call in which a value was read holds it in one of these, not in a QVariant.
/// Values without objects cost no more than a QVariant.
class ZelKeptValue
{
public:
    ZelKeptValue() = default;
    explicit ZelKeptValue(QVariant value) { keep(std::move(value)); }

    void keep(QVariant value)
    {
        m_value = std::move(value);
        m_objects.reset();
        if (mayHoldObjects(m_value.metaType()))
            watchObjects();
    }
    void clear() { keep({}); }

    /// Whether an object of the value has.
    bool hasDied() const { return m_objects && m_objects->haveDied(); }
    /// Absent, or null in a list of pointers, for an object that has died.
    const QVariant &value() const
    {
        if (hasDied())
            forgetDead();
        return m_value;
    }

private:
    struct Objects : QSharedData
    {
        bool isList = false;
        std::vector<std::pair<qsizetype, ZelObjectWatch>> entries; // by their place in the list
        bool haveDied() const;
    };

    /// Cheap, since every remembered value is asked.
    static bool mayHoldObjects(QMetaType type)
    {
        const int id = type.id();
        return id < QMetaType::User ? id == QMetaType::QObjectStar || id == QMetaType::QVariantList
                                    : mayCustomTypeHoldObjects(type);
    }
    static bool mayCustomTypeHoldObjects(QMetaType type);
    void watchObjects();
    void watch(qsizetype place, const QVariant &element);
    void forgetDead() const;

    mutable QVariant m_value;
    QExplicitlySharedDataPointer<Objects> m_objects; // null for a value without objects
};
