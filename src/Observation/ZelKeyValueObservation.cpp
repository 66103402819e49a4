// SPDX-License-Identifier: MIT
#include "Observation/ZelKeyValueObservation.h"

#include <QScopeGuard>

ZelKeyValueObservation::ZelKeyValueObservation(QObject *object, const ZelKeyPath &keyPath,
                                               ZelKeyValueObservingOptions options)
    : m_object(object)
    , m_keyPath(keyPath)
    , m_options(options)
{
    if (options & ZelKeyValueObservingOptionDeferred)
        m_deferred = std::make_unique<Deferred>(this);
}

void ZelKeyValueObservation::start()
{
    ZelAddObserver(m_object, this, m_keyPath, m_options, context());
}

void ZelKeyValueObservation::stop()
{
    if (m_object)
        ZelRemoveObserver(m_object, this, m_keyPath, context());
    if (m_deferred) {
        m_deferred->invocation.cancel();
        m_deferred->change.reset();
    }
    m_object.clear();
    m_keyPath = {};
}

bool ZelKeyValueObservation::defer(const ZelKeyValueChange &change)
{
    if (m_deferred->change)
        m_deferred->change->mergeLaterChange(change);
    else
        m_deferred->change = change;
    if (!m_deferred->invocation.isPending())
        m_deferred->invocation.schedule();
    return true;
}

void ZelKeyValueObservation::runDeferred()
{
    if (!m_deferred->change)
        return;
    const Delivery delivery(this);
    const auto reset = qScopeGuard([this] { m_deferred->change.reset(); });
    // A copy, since the callback may cause a change that is merged into the pending one.
    const ZelKeyValueChange change = *m_deferred->change;
    deliverDeferred(change);
}
