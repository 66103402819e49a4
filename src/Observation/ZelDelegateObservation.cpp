// SPDX-License-Identifier: MIT
#include "Observation/ZelDelegateObservation.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelValues.h"

#include <QMetaMethod>

static const char g_delegateContext = 0;

QSharedPointer<ZelDelegateObservation>
ZelDelegateObservation::observationWithObject(QObject *object, const ZelKeyPath &keyPath,
                                              ZelKeyValueObservingOptions options, QObject *observer,
                                              const ZelSelector &selector)
{
    const bool valid = ZelRequire(object, "object") && ZelRequire(!keyPath.isEmpty(), "keyPath") &&
                       ZelRequire(observer, "observer") && ZelRequire(!selector.isNull(), "selector");
    if (!valid)
        return {};
    return started<ZelDelegateObservation>(object, keyPath, options, observer, selector);
}

ZelDelegateObservation::ZelDelegateObservation(QObject *object, const ZelKeyPath &keyPath,
                                               ZelKeyValueObservingOptions options, QObject *observer,
                                               const ZelSelector &selector)
    : ZelKeyValueObservation(object, keyPath, options)
    , m_observer(observer)
    , m_selector(selector)
{
}

QString ZelDelegateObservation::description() const
{
    return title("ZelDelegateObservation") % QStringLiteral("{object=%1, keyPath=%2, observer=%3, observer=%4}")
                                                 .arg(ZelObjectDescription(object()), keyPath().string(),
                                                      ZelObjectDescription(m_observer), m_selector.name());
}

const void *ZelDelegateObservation::context() const
{
    return &g_delegateContext;
}

void ZelDelegateObservation::observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &change,
                                                    const void *context)
{
    if (context != &g_delegateContext || isCancelled())
        return;
    if (!holdsBack(change))
        deliver(change);
}

void ZelDelegateObservation::deliver(const ZelKeyValueChange &change)
{
    const int method = methodIndex();
    if (method < 0)
        return;
    const Delivery delivery(this);
    ZelDelegateObservation *self = this;
    void *arguments[] = {nullptr, &self, const_cast<ZelKeyValueChange *>(&change)};
    QMetaObject::metacall(m_observer, QMetaObject::InvokeMetaMethod, method, arguments);
}

/// Looks the method up when it is first needed. An observer may make its observations in its constructor, when its meta
/// object may still be that of a base.
int ZelDelegateObservation::methodIndex()
{
    if (!m_observer || m_methodIndex >= 0)
        return m_observer ? m_methodIndex : -1;
    QByteArray name = m_selector.name().toUtf8();
    while (name.endsWith(':'))
        name.chop(1);
    name.append("(ZelDelegateObservation*,ZelKeyValueChange)");
    m_methodIndex = m_observer->metaObject()->indexOfMethod(name);
    const ZelPlaceScope scope(m_observer);
    if (m_methodIndex < 0)
        ZelLogError(QStringLiteral("%1 has no slot or invokable method \"%2\" that takes an observation and a change")
                        .arg(ZelObjectDescription(m_observer), m_selector.name()));
    return m_methodIndex;
}

void ZelDelegateObservation::stop()
{
    ZelKeyValueObservation::stop();
    m_observer.clear();
    m_selector = {};
}
