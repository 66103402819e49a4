// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelObjectRecord.h"
#include "Core/KeyValue/private/ZelValueTypeAccess.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <QPointer>

namespace {

using Failure = ZelUndefinedKeyException::Failure;

[[noreturn]] void throwUndefined(const QVariant &value, ZelKey key, Failure failure = Failure::Missing)
{
    throw ZelUndefinedKeyException(ZelClassName(value), key.string(), failure);
}

[[noreturn]] void throwUndefined(const QObject *object, ZelKey key, Failure failure = Failure::Missing)
{
    throw ZelUndefinedKeyException(QString::fromUtf8(object->metaObject()->className()), key.string(), failure);
}

/// Throws if the value is a number that the type cannot hold.
void checkRange(const QVariant &value, QMetaType type, const QString &className, ZelKey key)
{
    QVariant converted = value;
    if (ZelValueConversion::convert(converted, type) != ZelValueConversion::OutOfRange)
        return;
    const ZelValueConversion::Limits limits = ZelValueConversion::limits(type);
    const QString property = QStringLiteral("The property \"%1\" of the class %2").arg(key.string(), className);
    throw ZelGenericException(limits.isValid() ? QStringLiteral("%1 cannot hold %2: it must be between %3 and %4.")
                                                     .arg(property, ZelDescription(value), limits.minimum.toString(),
                                                          limits.maximum.toString())
                                               : QStringLiteral("%1 cannot hold numbers of that size.").arg(property));
}

QVariant listForKey(const QVariant &list, ZelKey key)
{
    QVariantList answers;
    const QVariantList elements = ZelList(list);
    answers.reserve(elements.size());
    for (const QVariant &element : elements) {
        const QVariant answer = ZelValueForKey(element, key);
        answers.append(answer.isValid() ? answer : ZelNull());
    }
    return answers;
}

void logUnstored(const QVariant &value, const QString &target, ZelKey key)
{
    ZelLogError(
        QStringLiteral("Cannot store a value of class %1 in %2.%3").arg(ZelClassName(value), target, key.string()));
}

/// Answers a copy of the container in which the value at the path is replaced.
QVariant valueBySetting(const QVariant &container, const QVariant &value, const ZelKeyPath &path)
{
    if (path.isEmpty())
        return value;
    const QVariant inner =
        path.isSingleKey() ? value : valueBySetting(ZelValueForKey(container, path.first()), value, path.rest());
    QVariant changed = container;
    if (ZelValueTypeAccess::write(changed, path.first(), inner))
        return changed;
    const auto [type, isWritable] = ZelValueTypeAccess::property(container, path.first());
    if (!type.isValid())
        throwUndefined(container, path.first());
    if (!isWritable)
        throwUndefined(container, path.first(), Failure::ReadOnly);
    checkRange(inner, type, ZelClassName(container), path.first());
    logUnstored(inner, ZelClassName(container), path.first());
    return container;
}

void store(QObject *object, const ZelPropertyAccessor &accessor, const QVariant &value, ZelKey key)
{
    const QPointer<const QObject> alive(object);
    if (accessor.write(object, value) || !alive)
        return;
    checkRange(value, accessor.type(), QString::fromUtf8(object->metaObject()->className()), key);
    logUnstored(value, ZelObjectDescription(object), key);
}

/// Whether a write through the accessor must be announced from outside.
bool needsAnnouncement(const QObject *object, const ZelPropertyAccessor &accessor, ZelKey key)
{
    return accessor.isSilent() && !ZelObjectRecord::announcesItself(object, key);
}

} // namespace

QVariant ZelValueForKey(const QObject *object, ZelKey key)
{
    if (!object)
        return {};
    if (const ZelKeyValueCodingInterface *own = ZelPropertyAccessor::interfaceOf(object))
        return ZelPresent(own->valueForKeyPath(key));
    const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(object, key);
    if (!accessor)
        throwUndefined(object, key);
    return ZelPresent(accessor->read(object));
}

QVariant ZelValueForKeyPath(const QObject *object, const ZelKeyPath &path)
{
    ZelKeyPath rest = path;
    while (object && !rest.isEmpty()) {
        if (const ZelKeyValueCodingInterface *own = ZelPropertyAccessor::interfaceOf(object))
            return ZelPresent(own->valueForKeyPath(rest));
        const QVariant value = ZelValueForKey(object, rest.first());
        if (rest.isSingleKey())
            return value;
        rest = rest.rest();
        object = ZelObject(value);
        if (!object)
            return ZelValueForKeyPath(value, rest);
    }
    return {};
}

QVariant ZelValueForKey(const QVariant &value, ZelKey key)
{
    if (const QObject *object = ZelObject(value))
        return ZelValueForKey(object, key);
    if (ZelIsNull(value))
        return {};
    if (ZelIsControllerMarker(value))
        return value;
    QVariant answer;
    if (ZelValueTypeAccess::read(value, key, &answer))
        return ZelPresent(answer);
    if (ZelIsList(value))
        return listForKey(value, key);
    throwUndefined(value, key);
}

QVariant ZelValueForKeyPath(const QVariant &value, const ZelKeyPath &path)
{
    if (const QObject *object = ZelObject(value))
        return ZelValueForKeyPath(object, path);
    QVariant answer = value;
    ZelKeyPath rest = path;
    while (!rest.isEmpty() && !ZelIsNull(answer) && !ZelObject(answer)) {
        answer = ZelValueForKey(answer, rest.first());
        rest = rest.rest();
    }
    if (rest.isEmpty())
        return answer;
    return ZelValueForKeyPath(ZelObject(answer), rest);
}

void ZelSetValueForKey(QObject *object, const QVariant &value, ZelKey key)
{
    if (!object)
        return;
    if (ZelKeyValueCodingInterface *own = ZelPropertyAccessor::interfaceOf(object)) {
        own->setValueForKeyPath(value, key);
        return;
    }
    const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(object, key);
    if (!accessor)
        throwUndefined(object, key);
    if (!accessor->isWritable())
        throwUndefined(object, key, Failure::ReadOnly);
    if (needsAnnouncement(object, *accessor, key)) {
        const ZelGuardedValueChange announcement(object, key);
        store(object, *accessor, value, key);
    } else {
        store(object, *accessor, value, key);
    }
}

void ZelSetValueForKeyPath(QObject *object, const QVariant &value, const ZelKeyPath &path)
{
    ZelKeyPath rest = path;
    while (object && !rest.isEmpty()) {
        if (ZelKeyValueCodingInterface *own = ZelPropertyAccessor::interfaceOf(object)) {
            own->setValueForKeyPath(value, rest);
            return;
        }
        if (rest.isSingleKey()) {
            ZelSetValueForKey(object, value, rest.first());
            return;
        }
        const QVariant container = ZelValueForKey(object, rest.first());
        QObject *next = ZelObject(container);
        if (!next && !ZelIsNull(container) && !ZelIsControllerMarker(container))
            ZelSetValueForKey(object, valueBySetting(container, value, rest.rest()), rest.first());
        object = next;
        rest = rest.rest();
    }
}

bool ZelHasKey(const QObject *object, ZelKey key)
{
    return object && (ZelPropertyAccessor::interfaceOf(object) || ZelPropertyAccessor::find(object, key));
}
