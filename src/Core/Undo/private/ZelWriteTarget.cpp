// SPDX-License-Identifier: MIT
#include "Core/Undo/private/ZelWriteTarget.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/Selection/private/ZelSelectionProxy.h"
#include "Core/Values/ZelValues.h"

namespace {

void addTargets(QObject *root, const ZelKeyPath &path, std::vector<ZelWriteTarget> &targets)
{
    QObject *object = root;
    ZelKeyPath rest = path;
    while (object) {
        if (auto *proxy = qobject_cast<ZelSelectionProxy *>(object)) {
            if (rest.isSingleKey()) {
                targets.push_back({proxy->objects(), rest, {}, proxy->objectsOfEachClass(), proxy});
                return;
            }
            for (const QPointer<QObject> &selected : proxy->objects())
                addTargets(selected, rest, targets);
            return;
        }
        if (rest.isSingleKey() || !ZelHasKey(object, rest.first()))
            break;
        const QVariant value = ZelValueForKey(object, rest.first());
        if (ZelIsNull(value))
            return;
        QObject *next = ZelObject(value);
        if (!next)
            break; // what is left leads into a value
        object = next;
        rest = rest.rest();
    }
    if (object)
        targets.push_back({{object}, rest, {}, {object}, {}});
}

} // namespace

std::vector<ZelWriteTarget> ZelWriteTarget::resolve(QObject *root, const ZelKeyPath &path)
{
    std::vector<ZelWriteTarget> targets;
    addTargets(root, path, targets);
    return targets;
}

void ZelWriteTarget::readOldValues()
{
    ZelClassAccessors accessors(path);
    oldValues.reserve(objects.size());
    objects.removeIf([&](const QPointer<QObject> &object) {
        const std::optional<QVariant> value = object ? accessors.read(object) : std::nullopt;
        if (value)
            oldValues.append(*value);
        return !value;
    });
}
