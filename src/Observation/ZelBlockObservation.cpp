// SPDX-License-Identifier: MIT
#include "Observation/ZelBlockObservation.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelValues.h"

static const char g_blockContext = 0;

QSharedPointer<ZelBlockObservation> ZelBlockObservation::observationWithObject(QObject *object,
                                                                               const ZelKeyPath &keyPath,
                                                                               ZelKeyValueObservingOptions options,
                                                                               Block block)
{
    const bool valid =
        ZelRequire(object, "object") && ZelRequire(!keyPath.isEmpty(), "keyPath") && ZelRequire(bool(block), "block");
    if (!valid)
        return {};
    return started<ZelBlockObservation>(object, keyPath, options, std::move(block));
}

ZelBlockObservation::ZelBlockObservation(QObject *object, const ZelKeyPath &keyPath,
                                         ZelKeyValueObservingOptions options, Block block)
    : ZelKeyValueObservation(object, keyPath, options)
    , m_block(std::move(block))
{
}

QString ZelBlockObservation::description() const
{
    return title("ZelBlockObservation") %
           QStringLiteral("{object=%1, keyPath=%2}").arg(ZelObjectDescription(object()), keyPath().string());
}

const void *ZelBlockObservation::context() const
{
    return &g_blockContext;
}

void ZelBlockObservation::observeValueForKeyPath(const ZelKeyPath &, QObject *object, const ZelKeyValueChange &change,
                                                 const void *context)
{
    if (context != &g_blockContext || isCancelled())
        return;
    if (change.keyValueChangeKind() != ZelKeyValueChangeSetting && !admitsMutation(object))
        return;
    if (holdsBack(change))
        return;
    const Delivery delivery(this);
    m_block(this, change);
}

bool ZelBlockObservation::admitsMutation(const QObject *object) const
{
    if (options() & ZelKeyValueObservingOptionNoMutation)
        return false;
    const ZelPlaceScope scope(m_owner);
    ZelLogWarning(
        QStringLiteral("Mutation of %1.%2").arg(QLatin1String(object->metaObject()->className()), keyPath().string()));
    return true;
}

void ZelBlockObservation::deliverDeferred(const ZelKeyValueChange &change)
{
    if (!isCancelled())
        m_block(this, change);
}
