// SPDX-License-Identifier: MIT
#include "Observation/ZelKeyPathObservation.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Observation/ZelKeyValueObservation.h"

static const char g_keyPathContext = 0;

QSharedPointer<ZelKeyPathObservation> ZelKeyPathObservation::observationWithObject(QObject *object,
                                                                                   const ZelKeyPath &keyPath,
                                                                                   ZelKeyValueObservingOptions,
                                                                                   Block block)
{
    const bool valid =
        ZelRequire(object, "object") && ZelRequire(!keyPath.isEmpty(), "keyPath") && ZelRequire(bool(block), "block");
    if (!valid)
        return {};
    return started<ZelKeyPathObservation>(object, keyPath, std::make_shared<const Block>(std::move(block)));
}

ZelKeyPathObservation::ZelKeyPathObservation(QObject *object, const ZelKeyPath &keyPath, const SharedBlock &block)
    : m_object(object)
    , m_keyPath(keyPath)
    , m_key(keyPath.first())
    , m_restOfKeyPath(keyPath.rest())
    , m_block(block)
{
}

QString ZelKeyPathObservation::description() const
{
    return title("ZelKeyPathObservation") %
           QStringLiteral("{object=%1, keyPath=%2}").arg(ZelObjectDescription(m_object), m_keyPath.string());
}

void ZelKeyPathObservation::start()
{
    ZelAddObserver(m_object, this, m_key, ZelKeyValueObservingOptionPrior, &g_keyPathContext);
    updateObservers();
}

void ZelKeyPathObservation::stop()
{
    if (m_object)
        ZelRemoveObserver(m_object, this, m_key, &g_keyPathContext);
    cancelObservations();
    m_object.clear();
    m_keyPath = {};
}

void ZelKeyPathObservation::cancelObservations()
{
    for (const auto &observation : std::exchange(m_observations, {}))
        observation->cancel();
}

void ZelKeyPathObservation::updateObservers()
{
    cancelObservations();
    if (m_restOfKeyPath.isEmpty() || !m_object)
        return;
    const QVariant value = ZelValueForKey(m_object, m_key);
    if (!ZelIsList(value)) {
        addObservation(value);
        return;
    }
    const QVariantList elements = ZelList(value);
    m_observations.reserve(elements.size());
    for (const QVariant &element : elements)
        addObservation(element);
}

/// Observes the value if it is an object. Other values change only together with the key through which they are
/// reached.
void ZelKeyPathObservation::addObservation(const QVariant &value)
{
    if (QObject *object = ZelObject(value))
        m_observations.append(started<ZelKeyPathObservation>(object, m_restOfKeyPath, m_block));
}

void ZelKeyPathObservation::observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &change,
                                                   const void *context)
{
    if (context != &g_keyPathContext || isCancelled())
        return;
    const Delivery delivery(this);
    (*m_block)(this, change);
    // A prior change has not happened yet, so that there is nothing new to follow.
    if (!isCancelled() && !change.isPrior())
        updateObservers();
}
