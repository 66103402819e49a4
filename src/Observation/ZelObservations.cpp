// SPDX-License-Identifier: MIT
#include "Observation/ZelObservations.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/ZelAssociatedObjects.h"

/// Null if nothing is filed.
ZelObservations::List *ZelObservations::listForContext(const void *context) const
{
    if (!ZelRequire(context, "context != NULL"))
        return nullptr;
    return static_cast<List *>(ZelAssociatedObjects(m_owner).associatedValueForKey(context).get());
}

void ZelObservations::setObservations(const QList<ZelObservationPtr> &observations, const void *context) const
{
    if (!ZelRequire(context, "context != NULL"))
        return;
    ZelAssociatedObjects(m_owner).setAssociateValue(
        observations.isEmpty() ? std::shared_ptr<List>() : std::make_shared<List>(observations), context);
}

QList<ZelObservationPtr> ZelObservations::observationsForContext(const void *context) const
{
    const List *list = listForContext(context);
    return list ? *list : List();
}

void ZelObservations::addObservation(const ZelObservationPtr &observation, const void *context) const
{
    if (!observation)
        return;
    if (!context || !m_owner)
        observation->cancel(); // nobody else could cancel it
    if (!ZelRequire(context, "context != NULL") || !m_owner)
        return;
    if (List *list = listForContext(context))
        list->append(observation);
    else
        setObservations({observation}, context);
}

void ZelObservations::removeAllObservationsForContext(const void *context) const
{
    List *list = listForContext(context);
    if (!list)
        return;
    // They are taken out first, since cancelling may make the owner file others.
    const List removed = std::exchange(*list, {});
    setObservations({}, context);
    ZelFirstException failure;
    for (const ZelObservationPtr &observation : removed)
        failure.run([&] { observation->cancel(); });
    failure.rethrow();
}

void ZelObservations::addObservationWithCenter(ZelNotificationCenter *center, const QString &name, QObject *object,
                                               const ZelNotificationObservation::Block &block,
                                               const void *context) const
{
    addObservation(ZelNotificationObservation::observationWithCenter(center, name, object, block), context);
}

void ZelObservations::addObservationWithCenter(ZelNotificationCenter *center, const QStringList &names, QObject *object,
                                               const ZelNotificationObservation::Block &block,
                                               const void *context) const
{
    for (const QString &name : names)
        addObservationWithCenter(center, name, object, block, context);
}

void ZelObservations::addObservationWithObject(QObject *object, const ZelKeyPath &keyPath,
                                               ZelKeyValueObservingOptions options,
                                               const ZelBlockObservation::Block &block, const void *context) const
{
    const auto observation = ZelBlockObservation::observationWithObject(object, keyPath, options, block);
    if (observation)
        observation->m_owner = m_owner;
    addObservation(observation, context);
}

void ZelObservations::addObservationWithObject(QObject *object, const QStringList &keyPaths,
                                               ZelKeyValueObservingOptions options,
                                               const ZelBlockObservation::Block &block, const void *context) const
{
    for (const QString &keyPath : keyPaths)
        addObservationWithObject(object, ZelKeyPath(keyPath), options, block, context);
}

void ZelObservations::addObservationWithObject(QObject *object, const ZelKeyPath &keyPath,
                                               ZelKeyValueObservingOptions options, QObject *observer,
                                               const ZelSelector &selector, const void *context) const
{
    addObservation(ZelDelegateObservation::observationWithObject(object, keyPath, options, observer, selector),
                   context);
}

void ZelObservations::addObservationWithObject(QObject *object, const QStringList &keyPaths,
                                               ZelKeyValueObservingOptions options, QObject *observer,
                                               const ZelSelector &selector, const void *context) const
{
    for (const QString &keyPath : keyPaths)
        addObservationWithObject(object, ZelKeyPath(keyPath), options, observer, selector, context);
}

void ZelObservations::addBindingWithObject(QObject *object, const QString &name, QObject *toObject,
                                           const ZelKeyPath &keyPath, const ZelBindingOptions &options,
                                           const void *context) const
{
    addObservation(ZelBindingObservation::bindingWithObject(object, name, toObject, keyPath, options), context);
}

void ZelObservations::addBindingWithObject(QObject *object, QObject *toObject,
                                           const QMap<QString, QString> &namesAndKeyPaths,
                                           const ZelBindingOptions &options, const void *context) const
{
    for (auto it = namesAndKeyPaths.begin(); it != namesAndKeyPaths.end(); ++it)
        addBindingWithObject(object, it.key(), toObject, it.value(), options, context);
}
