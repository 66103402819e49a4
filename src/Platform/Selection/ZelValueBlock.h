// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKeyPath.h"

#include <QPointer>
#include <QVariant>

#include <cstddef>
#include <functional>
#include <memory>

/// A value for each of some objects: either any values, or values of one type, one after the other in memory, which
/// costs no QVariant an object. It is moved, not copied.
class ZelValueBlock
{
public:
    ZelValueBlock() = default;
    ZelValueBlock(const QVariantList &values)
        : m_size(values.size())
        , m_values(values)
    {
    }
    /// Room for so many values. The type must be one that is copied as memory and has nothing to destroy.
    ZelValueBlock(QMetaType type, qsizetype size)
        : m_type(type)
        , m_stride(type.sizeOf())
        , m_size(size)
        , m_bytes(std::make_unique_for_overwrite<std::byte[]>(size_t(m_stride * size)))
    {
    }

    qsizetype size() const { return m_size; }
    /// Of all values; invalid for any values.
    QMetaType type() const { return m_type; }
    /// The memory of a value of that type.
    void *data(qsizetype index) { return m_bytes.get() + index * m_stride; }
    const void *data(qsizetype index) const { return m_bytes.get() + index * m_stride; }
    QVariant at(qsizetype index) const { return m_bytes ? QVariant(m_type, data(index)) : m_values.at(index); }
    /// Keeps only the first values.
    void shrink(qsizetype size) { m_size = size; }

    /// Called for an object and its index right before it is written.
    using Prepare = std::function<void(const QObject *, qsizetype)>;
    /// Stores each object's value at the path as ZelSetValueForKeyPath does. Objects that have died are skipped. One
    /// that throws leaves the others to be written; the first exception goes on then.
    void write(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, const Prepare &prepare = {}) const;

private:
    QMetaType m_type;
    qsizetype m_stride = 0;
    qsizetype m_size = 0;
    std::unique_ptr<std::byte[]> m_bytes;
    QVariantList m_values;
};
