// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Selection/private/ZelPrefetch.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <algorithm>
#include <array>

/// Objects whose values are read. Reading may end objects, or begin a change of the list: the list is therefore a copy
/// of whoever walks through it, and an object is asked for right before it is used.
class ZelObjectBlock
{
public:
    /// So few objects that the processor keeps them at hand while several of their keys are read.
    static constexpr qsizetype size = 64;

    /// All objects, of which one key is read.
    explicit ZelObjectBlock(const QList<QPointer<QObject>> &objects)
        : m_objects(objects.constData())
        , m_count(objects.size())
    {
    }
    /// Some of the objects, of which several keys are read.
    ZelObjectBlock(const QList<QPointer<QObject>> &objects, qsizetype first)
        : m_objects(objects.constData() + first)
        , m_count(std::min(size, objects.size() - first))
        , m_knowsClasses(true)
    {
        for (qsizetype i = 0; i < m_count; ++i) {
            ZelPrefetch::ahead(objects, first + i);
            m_classes[size_t(i)] = classOf(m_objects[i].data());
        }
    }
    Q_DISABLE_COPY_MOVE(ZelObjectBlock)

    qsizetype count() const { return m_count; }
    const QPointer<QObject> *objects() const { return m_objects; }
    /// Has the objects behind that one fetched, unless they have been.
    void prefetchBehind(qsizetype index) const
    {
        if (!m_knowsClasses)
            ZelPrefetch::ahead(m_objects, index, m_count);
    }
    /// Null for one that has died.
    QObject *object(qsizetype index) const { return m_objects[index].data(); }
    /// The class of an object; null for one that has died before.
    const QMetaObject *classOf(qsizetype index) const
    {
        return m_knowsClasses ? m_classes[size_t(index)] : classOf(object(index));
    }

private:
    static const QMetaObject *classOf(const QObject *object) { return object ? object->metaObject() : nullptr; }

    const QPointer<QObject> *m_objects;
    qsizetype m_count;
    bool m_knowsClasses = false;
    std::array<const QMetaObject *, size> m_classes; // if they are known
};
