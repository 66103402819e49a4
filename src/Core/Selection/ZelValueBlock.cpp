// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelValueBlock.h"

#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/Selection/private/ZelColumnAccess.h"
#include "Core/Selection/private/ZelColumnWatch.h"
#include "Core/Selection/private/ZelPrefetch.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelSpareNumbers.h"

#include <cstring>

namespace {

/// Compares as memcmp does, which is no call where the size is known.
bool areSame(const void *a, const void *b, size_t size)
{
    switch (size) {
    case 8:
        return std::memcmp(a, b, 8) == 0;
    case 16:
        return std::memcmp(a, b, 16) == 0;
    case 32:
        return std::memcmp(a, b, 32) == 0;
    default:
        return std::memcmp(a, b, size) == 0;
    }
}

} // namespace

void ZelValueBlock::allocate()
{
    const auto bytes = size_t(m_stride * m_size);
    m_memory = ZelSpareNumbers::make((bytes + sizeof(double) - 1) / sizeof(double));
    m_bytes = reinterpret_cast<const std::byte *>(m_memory->data());
    m_isShared = false;
}

void ZelValueBlock::detach()
{
    const ZelValueBlock shared = share();
    allocate();
    std::memcpy(const_cast<std::byte *>(m_bytes), shared.m_bytes, size_t(m_stride * m_size));
}

ZelValueBlock ZelValueBlock::share()
{
    ZelValueBlock other;
    other.m_type = m_type;
    other.m_stride = m_stride;
    other.m_size = m_size;
    other.m_memory = m_memory;
    other.m_bytes = m_bytes;
    other.m_isShared = m_isShared = true;
    return other;
}

void ZelValueBlock::copy(qsizetype from, qsizetype to)
{
    void *target = data(to); // may move all values
    std::memcpy(target, std::as_const(*this).data(from), size_t(m_stride));
}

std::optional<QVariant> ZelValueBlock::commonValue() const
{
    if (!m_bytes || m_size == 0)
        return std::nullopt;
    for (qsizetype i = 1; i < m_size; ++i) {
        if (!areSame(data(i), data(0), size_t(m_stride)))
            return std::nullopt;
    }
    const QVariant value = at(0);
    return ZelEqual(value, value) ? std::optional(value) : std::nullopt;
}

void ZelValueBlock::write(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path) const
{
    ZelClassAccessors accessors(path);
    ZelColumnAccess columns(path.first(), path.isSingleKey() ? m_type : QMetaType());
    ZelFirstException errors;
    for (qsizetype i = 0; i < m_size; ++i) {
        ZelPrefetch::ahead(objects, i);
        qsizetype taken = columns.take(objects.constData() + i, m_size - i);
        if (taken > 0)
            errors.run([&] { taken = columns.write(data(i)) ? taken : 0; });
        if (taken > 0) {
            i += taken - 1;
            continue;
        }
        QObject *object = objects.at(i);
        if (!object)
            continue;
        errors.run([&] {
            if (!m_bytes)
                accessors.write(object, at(i));
            else if (!accessors.writeTyped(object, m_type, data(i)))
                ZelSetValueForKeyPath(object, at(i), path);
        });
    }
    errors.rethrow();
}

/// Writes the values from the first one on through a store. Answers false if nothing is written.
bool ZelValueBlock::writeColumn(ZelColumnAccess &columns, qsizetype first, qsizetype count, const ZelValueBlock &before,
                                const Renew &renew)
{
    const std::byte *present = columns.read();
    for (qsizetype i = 0; present && i < count; ++i) {
        if (!areSame(columns.valueAt(present, i), before.data(first + i), size_t(m_stride)))
            renew(first + i, columns.valueAt(present, i), data(first + i));
    }
    return present && columns.write(std::as_const(*this).data(first));
}

void ZelValueBlock::write(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, const ZelValueBlock &before,
                          const Renew &renew, ZelColumnWatch *watch)
{
    ZelClassAccessors accessors(path);
    ZelFirstException errors;
    const auto size = size_t(m_stride);
    const auto present = std::make_unique_for_overwrite<std::byte[]>(size);
    ZelColumnAccess columns(path.first(), path.isSingleKey() ? m_type : QMetaType());
    for (qsizetype i = 0; i < m_size; ++i) {
        ZelPrefetch::ahead(objects, i);
        qsizetype taken = columns.take(objects.constData() + i, m_size - i);
        if (taken > 0)
            errors.run([&] { taken = writeColumn(columns, i, taken, before, renew) ? taken : 0; });
        if (taken > 0) {
            i += taken - 1;
            continue;
        }
        const QPointer<QObject> &object = objects.at(i);
        if (!object)
            continue;
        errors.run([&] {
            const ZelPropertyAccessor *accessor = accessors.announced(object, m_type);
            const bool isKnown = watch && watch->hasHeardAll();
            if (accessor && !isKnown && accessor->readTyped(object, present.get()) &&
                !areSame(present.get(), before.data(i), size))
                renew(i, present.get(), data(i));
            if (!object) // the getter has ended it
                return;
            const void *wanted = std::as_const(*this).data(i);
            if (!accessor || !accessor->writeTyped(object, wanted))
                ZelSetValueForKeyPath(object, at(i), path);
            else if (!isKnown || !object || !accessor->readTyped(object, present.get()))
                return;
            else if (areSame(present.get(), wanted, size))
                watch->didWrite();
            else
                watch->didWriteOther(!areSame(present.get(), before.data(i), size));
        });
    }
    if (watch)
        watch->finish(*this);
    errors.rethrow();
}
