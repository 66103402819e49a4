// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelSelectionFold.h"

#include "Core/Errors/ZelSourcePlace.h"
#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/KeyValue/private/ZelObjectRecord.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Selection/private/ZelColumnAccess.h"
#include "Core/Selection/private/ZelColumnFold.h"
#include "Core/Selection/private/ZelPrefetch.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <algorithm>
#include <numeric>

namespace {

bool hasPath(const QObject *object, const ZelKeyPath &path)
{
    return ZelHasKey(object, path.first());
}

/// Folds whole values, for paths of several keys and for objects that answer keys themselves.
QVariant foldPaths(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path)
{
    QVariant result = QVariant::fromValue(ZelNoSelectionMarker);
    bool isFirst = true;
    const QObject *source = nullptr; // of the result
    const auto isOfTexts = [&](const QObject *object) {
        return ZelPropertyDomain::ofKeyPath(object, path).isOfTexts();
    };
    for (const QPointer<QObject> &object : objects) {
        if (!object)
            continue;
        if (!hasPath(object, path))
            return QVariant::fromValue(ZelNotApplicableMarker);
        const QVariant value = ZelValueForKeyPath(object.data(), path);
        if (ZelIsControllerMarker(value))
            return value;
        const bool isOther = !isFirst && ZelNotEqual(value, result) &&
                             !(ZelColumnFold::areEmptyTexts(value, result) && isOfTexts(object) && isOfTexts(source));
        if (isOther)
            return QVariant::fromValue(ZelMultipleValuesMarker);
        result = value;
        source = object;
        isFirst = false;
    }
    return result;
}

/// Writes one value to many objects. It is converted once for those that have the same property.
class ValueWriter
{
public:
    ValueWriter(const QVariant &value, const ZelKeyPath &path)
        : m_value(value)
        , m_path(path)
        , m_accessors(path)
        , m_isPlain(path.isSingleKey() && !ZelIsNull(value) && !ZelIsControllerMarker(value))
    {
    }

    /// Writes to the object at that place, and to those behind it that a store writes together with it. The place
    /// becomes that of the next object, even if something is thrown.
    void write(const QList<QPointer<QObject>> &objects, qsizetype &place)
    {
        ZelPrefetch::ahead(objects, place);
        QObject *object = objects.at(place++);
        const ZelPropertyAccessor *accessor = object && m_isPlain ? m_accessors.of(object) : nullptr;
        if (accessor && accessor != m_accessor)
            convertFor(*accessor);
        if (!object || (accessor && m_columns && writeColumn(objects, place)))
            return;
        const bool isWritten =
            accessor && m_converted.isValid() && accessor->writeTyped(object, std::as_const(m_converted).constData());
        const bool hasKey = isWritten || accessor || hasPath(object, m_path);
        m_hasFoundKey = m_hasFoundKey || hasKey;
        if (!isWritten && hasKey)
            ZelSetValueForKeyPath(object, m_value, m_path);
    }
    bool hasFoundKey() const { return m_hasFoundKey; }

private:
    void convertFor(const ZelPropertyAccessor &accessor)
    {
        const QMetaType type = accessor.type();
        m_accessor = &accessor;
        m_columns.reset();
        m_converted = m_value;
        if (accessor.isSilent() || !type.isValid() ||
            ZelValueConversion::convert(m_converted, type) != ZelValueConversion::Fits ||
            m_converted.metaType() != type) // a property of any type is not written through memory
            m_converted.clear();
        else if (accessor.isWritable())
            m_columns.emplace(m_path.first(), type);
    }
    bool writeColumn(const QList<QPointer<QObject>> &objects, qsizetype &place)
    {
        const qsizetype first = place - 1;
        const qsizetype count = m_columns->take(objects.constData() + first, objects.size() - first);
        if (count == 0)
            return false;
        m_hasFoundKey = true;
        place = first + count;
        if (m_columns->writeToAll(std::as_const(m_converted).constData()))
            return true;
        place = first + 1;
        return false;
    }

    const QVariant &m_value;
    const ZelKeyPath &m_path;
    ZelClassAccessors m_accessors;
    const bool m_isPlain;
    const ZelPropertyAccessor *m_accessor = nullptr;
    QVariant m_converted; // for that accessor, if it takes values through memory and announces them
    std::optional<ZelColumnAccess> m_columns;
    bool m_hasFoundKey = false;
};

} // namespace

QVariant ZelSelectionFold::value(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path)
{
    const QList<QPointer<QObject>> snapshot = objects; // a getter may change the selection
    if (!path.isSingleKey())
        return foldPaths(snapshot, path);
    ZelColumnFold column(path.first());
    column.add(ZelObjectBlock(snapshot));
    return column.needsPaths() ? foldPaths(snapshot, path) : column.result();
}

std::vector<std::optional<QVariant>> ZelSelectionFold::values(const QList<QPointer<QObject>> &objects,
                                                              const std::vector<Reading> &readings)
{
    const QList<QPointer<QObject>> snapshot = objects;
    std::vector<ZelColumnFold> columns;
    for (const Reading &reading : readings)
        columns.emplace_back(reading.key);
    std::vector<size_t> undecided(readings.size());
    std::iota(undecided.begin(), undecided.end(), size_t(0));
    std::vector<bool> hasFailed(readings.size());
    for (qsizetype first = 0; first < snapshot.size() && !undecided.empty(); first += ZelObjectBlock::size) {
        const ZelObjectBlock block(snapshot, first);
        std::erase_if(undecided, [&](size_t i) {
            try {
                const ZelPlaceScope place(readings[i].reader);
                columns[i].add(block);
            } catch (...) {
                hasFailed[i] = true; // whoever reads this key alone gets the exception
            }
            return columns[i].isDecided() || hasFailed[i];
        });
    }
    std::vector<std::optional<QVariant>> values(readings.size());
    for (size_t i = 0; i < values.size(); ++i) {
        if (!hasFailed[i] && !columns[i].needsPaths())
            values[i] = columns[i].result();
    }
    return values;
}

void ZelSelectionFold::setValue(const QList<QPointer<QObject>> &objects, const QVariant &value, const ZelKeyPath &path)
{
    const QList<QPointer<QObject>> snapshot = objects; // a setter may change the selection
    ValueWriter writer(value, path);
    ZelFirstException errors;
    for (qsizetype place = 0; place < snapshot.size();)
        errors.run([&] { writer.write(snapshot, place); });
    errors.rethrow();
    const auto living = [](const QPointer<QObject> &object) { return !object.isNull(); };
    const auto first = std::find_if(snapshot.begin(), snapshot.end(), living);
    if (!writer.hasFoundKey() && first != snapshot.end())
        ZelSetValueForKeyPath(first->data(), value, path); // throws, because the object lacks the key
}

bool ZelSelectionFold::isSilent(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path)
{
    ZelClassAccessors accessors(path);
    for (const QPointer<QObject> &object : objects) {
        if (!object)
            continue;
        const ZelPropertyAccessor *accessor = path.isSingleKey() ? accessors.of(object) : nullptr;
        if (!accessor || accessor->isSilent()) // something along a path may be silent
            return true;
    }
    return false;
}
