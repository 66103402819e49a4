// SPDX-License-Identifier: MIT
#include "Core/Undo/private/ZelRecordedWrite.h"

#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Undo/private/ZelModelValidation.h"
#include "Core/Undo/private/ZelOwnNumbers.h"
#include "Core/Undo/private/ZelWriteTarget.h"
#include "Core/Values/ZelValues.h"

#include <algorithm>
#include <vector>

namespace {

/// Whether a living object has another value now. As a rule the first one has.
bool hasChanged(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, const ZelValueBlock &oldValues)
{
    ZelClassAccessors accessors(path);
    for (qsizetype i = 0; i < objects.size(); ++i) {
        const std::optional<QVariant> value = objects.at(i) ? accessors.read(objects.at(i)) : oldValues.at(i);
        if (!value || ZelNotEqual(*value, oldValues.at(i)))
            return true;
    }
    return false;
}

/// Records a write, unless it changed nothing. If something was thrown, only the objects that have another value now
/// count as written.
void record(ZelUndoManager *manager, const QList<QPointer<QObject>> &objects, const ZelKeyPath &path,
            ZelValueBlock oldValues, ZelValueBlock newValues, bool hasThrown)
{
    // Opened even if nothing changed: it makes the manager forget the edit before, whose step would otherwise get this
    // one's name.
    const ZelUndoGrouping grouping(manager);
    if (!hasThrown) {
        if (hasChanged(objects, path, oldValues))
            manager->recordWrite(objects, path, std::move(oldValues), std::move(newValues));
        return;
    }
    ZelClassAccessors accessors(path);
    QList<QPointer<QObject>> changed;
    QVariantList before;
    QVariantList after;
    for (qsizetype i = 0; i < objects.size(); ++i) {
        const QPointer<QObject> object = objects.at(i);
        const QVariant old = oldValues.at(i);
        if (!object || ZelEqual(accessors.read(object).value_or(old), old))
            continue;
        changed.append(object);
        before.append(old);
        after.append(newValues.at(i));
    }
    manager->recordWrite(changed, path, before, after);
}

} // namespace

void ZelRecordedWrite::setValueForKeyPath(QObject *root, const QVariant &value, const ZelKeyPath &path) const
{
    if (const ZelNumberChange *change = ZelNumberChange::of(value)) {
        changeNumbers(root, *change, path);
        return;
    }
    const QPointer<ZelUndoManager> manager(m_manager);
    std::vector<ZelWriteTarget> targets = ZelWriteTarget::resolve(root, path);
    ZelModelValidation validation;
    validation.askTargets(targets, value);
    validation.check();
    if (!manager || !manager->recordsEdits()) {
        targets.clear();
    } else {
        for (ZelWriteTarget &target : targets)
            target.readOldValues();
    }
    ZelFirstException errors;
    errors.run([&] { ZelSetValueForKeyPath(root, value, path); });
    const bool hasThrown = errors.hasOccurred();
    errors.run([&] {
        const ZelUndoGrouping grouping(manager); // one step, however many targets
        for (const ZelWriteTarget &target : targets) {
            if (manager)
                record(manager, target.objects, target.path, target.oldValues,
                       QVariantList(target.oldValues.size(), value), hasThrown);
        }
    });
    errors.run([] { ZelRereadSilentProperties(); });
    errors.rethrow();
}

void ZelRecordedWrite::changeNumbers(QObject *root, const ZelNumberChange &change, const ZelKeyPath &path,
                                     const ZelValueTransformerPtr &transformer) const
{
    const QPointer<ZelUndoManager> manager(m_manager);
    const ZelUndoGrouping grouping(manager); // one step, however many targets
    ZelOwnNumbers numbers(root, path, transformer);
    ZelObjectController::batchChanges([&] { numbers.write(change, *this); });
}

namespace {

/// The new value of each object, after the models have been asked about all of them; nothing if no class asks.
std::vector<std::optional<QVariant>> validated(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path,
                                               const ZelRecordedWrite::Map &map)
{
    ZelModelValidation validation(path.first());
    std::vector<std::optional<QVariant>> values;
    const auto validates = [&](const QPointer<QObject> &object) { return object && validation.validates(object); };
    if (!path.isSingleKey() || std::none_of(objects.begin(), objects.end(), validates))
        return values;
    ZelClassAccessors accessors(path);
    for (const QPointer<QObject> &object : objects) {
        const std::optional<QVariant> stored = object ? accessors.read(object) : std::nullopt;
        values.push_back(stored ? map(*stored) : std::nullopt);
        if (object && values.back())
            validation.ask(object, *values.back());
    }
    validation.check();
    return values;
}

} // namespace

void ZelRecordedWrite::mapValues(const QList<QObject *> &objects, const ZelKeyPath &path, const Map &map) const
{
    const QPointer<ZelUndoManager> manager(m_manager);
    const QList<QPointer<QObject>> pointers(objects.begin(), objects.end());
    ZelClassAccessors accessors(path);
    const bool records = manager && manager->recordsEdits();
    const std::vector<std::optional<QVariant>> checked = validated(pointers, path, map);
    QVariantList before; // read ahead for all, since an object may be changed by another's setter before its turn
    for (qsizetype i = 0; records && i < pointers.size(); ++i)
        before.append(pointers.at(i) ? accessors.read(pointers.at(i)).value_or(QVariant()) : QVariant());

    QList<QPointer<QObject>> written;
    QVariantList oldValues;
    QVariantList newValues;
    ZelFirstException errors;
    bool isFound = false;
    const bool isSingleKey = path.isSingleKey();
    for (qsizetype i = 0; i < pointers.size(); ++i) {
        const QPointer<QObject> &object = pointers.at(i);
        errors.run([&] {
            const std::optional<QVariant> stored = object ? accessors.read(object) : std::nullopt;
            isFound = isFound || stored;
            const std::optional<QVariant> value = !stored           ? std::nullopt
                                                  : checked.empty() ? map(*stored)
                                                                    : checked[size_t(i)];
            if (!value || !object)
                return;
            if (records) {
                written.append(object);
                oldValues.append(before.at(i));
                newValues.append(*value);
            }
            if (isSingleKey)
                accessors.write(object, *value);
            else
                ZelSetValueForKey(object, *value, ZelKey(path.string())); // throws, as a path is no key
        });
    }
    const bool hasThrown = errors.hasOccurred();
    const auto living = std::find_if(pointers.begin(), pointers.end(), [](const auto &object) { return bool(object); });
    if (!isFound && !hasThrown && living != pointers.end())
        errors.run([&] { (void)ZelValueForKeyPath(living->data(), path); }); // raises: the object lacks the key
    if (manager && records)
        errors.run([&] { record(manager, written, path, oldValues, newValues, hasThrown); });
    errors.run([] { ZelRereadSilentProperties(); });
    errors.rethrow();
}

void ZelRecordedWrite::setValues(const QList<QPointer<QObject>> &objects, ZelValueBlock oldValues,
                                 ZelValueBlock newValues, const ZelKeyPath &path, const ZelValueBlock::Renew &renew,
                                 bool mayBeRefused, ZelColumnWatch *watch) const
{
    const QPointer<ZelUndoManager> manager(m_manager);
    if (mayBeRefused && path.isSingleKey()) {
        ZelModelValidation validation(path.first());
        for (qsizetype i = 0; i < objects.size(); ++i) {
            if (objects.at(i))
                validation.ask(objects.at(i), validation.validates(objects.at(i)) ? newValues.at(i) : QVariant());
        }
        validation.check();
    }
    ZelFirstException errors;
    errors.run([&] {
        if (renew)
            newValues.write(objects, path, oldValues, renew, watch);
        else
            newValues.write(objects, path);
    });
    const bool hasThrown = errors.hasOccurred();
    if (manager)
        errors.run([&] { record(manager, objects, path, std::move(oldValues), std::move(newValues), hasThrown); });
    errors.run([] { ZelRereadSilentProperties(); });
    errors.rethrow();
}
