// SPDX-License-Identifier: MIT
#include "Platform/Selection/ZelRecordedWrite.h"

#include "Platform/Runtime/ZelClassAccessors.h"
#include "Platform/Runtime/ZelKeyValueCoding.h"
#include "Platform/Runtime/ZelKeyValueObserving.h"
#include "Platform/Runtime/ZelValues.h"
#include "Platform/Selection/ZelSelectionProxy.h"
#include "Platform/Selection/ZelUndoManager.h"

namespace {

/// What a write at a path really stores into: the objects, and the path below them.
struct Target
{
    QList<QPointer<QObject>> objects;
    ZelKeyPath path;
};

Target resolve(QObject *root, const ZelKeyPath &path)
{
    QObject *object = root;
    ZelKeyPath rest = path;
    while (object) {
        if (const auto *proxy = qobject_cast<ZelSelectionProxy *>(object))
            return {proxy->objects(), rest};
        QObject *next = rest.isSingleKey() || !ZelHasKey(object, rest.first())
                            ? nullptr
                            : ZelObject(ZelValueForKey(object, rest.first()));
        if (!next)
            break; // the last object; what is left may lead into a value
        object = next;
        rest = rest.rest();
    }
    return {{object}, rest};
}

/// The values of the living objects that have the path; the others leave the list.
QVariantList readValues(QList<QPointer<QObject>> &objects, const ZelKeyPath &path)
{
    ZelClassAccessors accessors(path);
    QVariantList values;
    values.reserve(objects.size());
    objects.removeIf([&](const QPointer<QObject> &object) {
        const std::optional<QVariant> value = object ? accessors.read(object) : std::nullopt;
        if (value)
            values.append(*value);
        return !value;
    });
    return values;
}

} // namespace

void ZelRecordedWrite::setValueForKeyPath(QObject *root, const QVariant &value, const ZelKeyPath &path) const
{
    const QPointer<ZelUndoManager> manager(m_manager);
    Target target;
    QVariantList oldValues;
    if (manager && manager->recordsEdits()) {
        target = resolve(root, path);
        oldValues = readValues(target.objects, target.path);
    }
    ZelSetValueForKeyPath(root, value, path);
    if (manager && !target.objects.isEmpty())
        manager->recordWrite(target.objects, target.path, oldValues, QVariantList(oldValues.size(), value));
    ZelRereadSilentProperties();
}

void ZelRecordedWrite::setValuesForKey(const QList<QObject *> &objects, const QVariantList &values, ZelKey key) const
{
    const QPointer<ZelUndoManager> manager(m_manager);
    const QList<QPointer<QObject>> pointers(objects.begin(), objects.end());
    QList<QPointer<QObject>> written = pointers;
    const bool records = manager && manager->recordsEdits();
    const QVariantList oldValues = records ? readValues(written, key) : QVariantList();
    ZelClassAccessors accessors(key);
    const bool isSingleKey = ZelKeyPath(key).isSingleKey(); // a path passed as a key is an undefined key
    for (qsizetype i = 0; i < pointers.size(); ++i) {
        if (pointers.at(i) && isSingleKey)
            accessors.write(pointers.at(i), values.at(i));
        else
            ZelSetValueForKey(pointers.at(i), values.at(i), key);
    }
    if (manager && records && written.size() == pointers.size())
        manager->recordWrite(written, key, oldValues, values);
    ZelRereadSilentProperties();
}

void ZelRecordedWrite::setValuesForKey(const QList<QPointer<QObject>> &objects, ZelValueBlock oldValues,
                                       ZelValueBlock newValues, ZelKey key) const
{
    const QPointer<ZelUndoManager> manager(m_manager);
    newValues.write(objects, key);
    if (manager)
        manager->recordWrite(objects, key, std::move(oldValues), std::move(newValues));
    ZelRereadSilentProperties();
}
