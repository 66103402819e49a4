// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelValueBlock.h"

#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/Selection/private/ZelColumnAccess.h"
#include "Core/Selection/private/ZelPrefetch.h"

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

void ZelValueBlock::detach()
{
    const std::shared_ptr<std::byte[]> own(new std::byte[size_t(m_stride * m_size)]);
    for (qsizetype i = 0; i < m_stride * m_size; ++i)
        own[i] = m_bytes[i];
    m_bytes = own;
    m_isShared = false;
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
                          const Renew &renew)
{
    ZelClassAccessors accessors(path);
    ZelFirstException errors;
    const auto present = std::make_unique_for_overwrite<std::byte[]>(size_t(m_stride));
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
            if (accessor && accessor->readTyped(object, present.get()) &&
                !areSame(present.get(), before.data(i), size_t(m_stride)))
                renew(i, present.get(), data(i));
            if (!object) // the getter has ended it
                return;
            if (!accessor || !accessor->writeTyped(object, std::as_const(*this).data(i)))
                ZelSetValueForKeyPath(object, at(i), path);
        });
    }
    errors.rethrow();
}
