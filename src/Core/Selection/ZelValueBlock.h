// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeptValue.h"
#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/ZelExport.h"

#include <QPointer>
#include <QVariant>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class ZelColumnAccess;
class ZelColumnWatch;

/// A value for each of some objects. They are either any values or values of one type, one after the other in memory,
/// which needs no QVariant for each object. A block is moved, not copied. A value that is an object reads as absent
/// once the object has died.
class ZEL_EXPORT ZelValueBlock
{
public:
    ZelValueBlock() = default;
    ZelValueBlock(const QVariantList &values)
        : m_size(values.size())
        , m_values(values.begin(), values.end())
    {
    }
    /// The values are these numbers, which are not copied unless one is changed.
    explicit ZelValueBlock(const std::shared_ptr<const std::vector<double>> &numbers)
        : m_type(QMetaType::fromType<double>())
        , m_stride(sizeof(double))
        , m_size(qsizetype(numbers->size()))
        , m_memory(numbers)
        , m_bytes(reinterpret_cast<const std::byte *>(numbers->data()))
        , m_isShared(true)
    {
    }
    /// Makes room for so many values of a type that is copied as memory and has nothing to destroy.
    ZelValueBlock(QMetaType type, qsizetype size)
        : m_type(type)
        , m_stride(type.sizeOf())
        , m_size(size)
    {
        allocate();
    }
    ZelValueBlock(ZelValueBlock &&) = default;
    ZelValueBlock &operator=(ZelValueBlock &&) = default;

    qsizetype size() const { return m_size; }
    /// The type of all values; invalid if they are any values.
    QMetaType type() const { return m_type; }
    /// The memory of a value of that type.
    void *data(qsizetype index)
    {
        if (m_isShared)
            detach();
        return const_cast<std::byte *>(m_bytes) + index * m_stride;
    }
    const void *data(qsizetype index) const { return m_bytes + index * m_stride; }
    /// The values as numbers, without a copy. Values of type double only.
    std::shared_ptr<const std::vector<double>> numbers()
    {
        m_isShared = true;
        return m_memory;
    }
    QVariant at(qsizetype index) const
    {
        return m_bytes ? QVariant(m_type, data(index)) : m_values[size_t(index)].value();
    }
    /// The value if all are the same, in memory of one type; otherwise nothing. NaN is not the same as itself.
    std::optional<QVariant> commonValue() const;
    /// Answers a block with the same memory, which either copies before it changes a value. Values of one type only.
    ZelValueBlock share();
    /// Makes one value equal to another.
    void copy(qsizetype from, qsizetype to);
    /// Keeps only the first values.
    void shrink(qsizetype size) { m_size = size; }

    /// Stores each object's value at the path as ZelSetValueForKeyPath does. Objects that have died are skipped. If one
    /// throws, the others are written all the same, and then the first exception is thrown on.
    void write(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path) const;

    /// Makes the new value of the object of that index anew, from the value that it has by now.
    using Renew = std::function<void(qsizetype index, const void *present, void *value)>;
    /// Does the same with values of one type. Right before an object is written, it is read: if it does not have its
    /// value of before any more, because the setter of another object has changed it, its new value is made anew.
    void write(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, const ZelValueBlock &before,
               const Renew &renew, ZelColumnWatch *watch = nullptr);

private:
    void allocate();
    void detach();
    bool writeColumn(ZelColumnAccess &columns, qsizetype first, qsizetype count, const ZelValueBlock &before,
                     const Renew &renew);

    QMetaType m_type;
    qsizetype m_stride = 0;
    qsizetype m_size = 0;
    std::shared_ptr<const std::vector<double>> m_memory; // null if they are any values
    const std::byte *m_bytes = nullptr;                  // that memory, which holds doubles or other values
    bool m_isShared = false;                             // with somebody who does not expect them to change
    std::vector<ZelKeptValue> m_values;
};
