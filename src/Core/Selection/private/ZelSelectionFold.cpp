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
    ZelClassAccessors accessors(path);
    const ZelPropertyAccessor *current = nullptr;
    QVariant converted; // for the current accessor, if that takes values through memory and announces them
    const bool isPlain = path.isSingleKey() && !ZelIsNull(value) && !ZelIsControllerMarker(value);
    const QList<QPointer<QObject>> snapshot = objects; // a setter may change the selection
    ZelFirstException errors;
    bool isFound = false;
    for (qsizetype i = 0; i < snapshot.size(); ++i) {
        ZelPrefetch::ahead(snapshot, i);
        QObject *object = snapshot.at(i);
        if (!object)
            continue;
        const ZelPropertyAccessor *accessor = isPlain ? accessors.of(object) : nullptr;
        if (accessor && accessor != current) {
            current = accessor;
            converted = value;
            if (accessor->isSilent() || !accessor->type().isValid() ||
                ZelValueConversion::convert(converted, accessor->type()) != ZelValueConversion::Fits ||
                converted.metaType() != accessor->type()) // a property of any type is not written through memory
                converted.clear();
        }
        errors.run([&] {
            const bool isWritten =
                accessor && converted.isValid() && accessor->writeTyped(object, std::as_const(converted).constData());
            const bool hasKey = isWritten || accessor || hasPath(object, path);
            isFound = isFound || hasKey;
            if (!isWritten && hasKey)
                ZelSetValueForKeyPath(object, value, path);
        });
    }
    errors.rethrow();
    const auto living = [](const QPointer<QObject> &object) { return !object.isNull(); };
    const auto first = std::find_if(snapshot.begin(), snapshot.end(), living);
    if (!isFound && first != snapshot.end())
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
