// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelObjectWatch.h"
#include "Core/ZelExport.h"

#include <QExplicitlySharedDataPointer>
#include <QSharedData>
#include <QVariant>

#include <utility>
#include <vector>

/// A value that is remembered. An object that it points to, itself or in a list, may die meanwhile, and another may
/// take its place in memory.
///
/// Whatever outlives the call in which a value was read holds it in one of these, not in a QVariant.
/// Values without objects cost little more than a QVariant.
class ZEL_EXPORT ZelKeptValue
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

    /// Whether an object has died that the value points to.
    bool hasDied() const { return m_objects && m_objects->haveDied(); }
    /// Answers the value. An object that has died reads as absent, or as a null pointer in a list of pointers.
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

    /// This is cheap, because every value that is remembered passes it.
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
