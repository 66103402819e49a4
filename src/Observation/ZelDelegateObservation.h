// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelSelector.h"
#include "Core/ZelExport.h"
#include "Observation/ZelKeyValueObservation.h"

/// Invokes a method of an observer at every change of a key path of an object. Changes of a list's elements are
/// delivered like all others; the NoMutation option has no effect.
///
/// The selector names a slot or invokable method that takes the observation and the change:
///
///     Q_INVOKABLE void itemsChanged(ZelDelegateObservation *observation, const ZelKeyValueChange &change);
///
/// The method is looked up at the first change; if there is none, each change logs a line "ERROR: ...". Once the
/// observer has died, nothing is invoked.
class ZEL_EXPORT ZelDelegateObservation final : public ZelKeyValueObservation
{
public:
    /// Starts to observe. Asserts "object", "keyPath", "observer" and "selector"; null if one of them is missing.
    static QSharedPointer<ZelDelegateObservation> observationWithObject(QObject *object, const ZelKeyPath &keyPath,
                                                                        ZelKeyValueObservingOptions options,
                                                                        QObject *observer, const ZelSelector &selector);
    QObject *observer() const { return m_observer; }
    const ZelSelector &selector() const { return m_selector; }
    QString description() const override;

private:
    friend class ZelObservation;
    ZelDelegateObservation(QObject *object, const ZelKeyPath &keyPath, ZelKeyValueObservingOptions options,
                           QObject *observer, const ZelSelector &selector);
    const void *context() const override;
    void observeValueForKeyPath(const ZelKeyPath &keyPath, QObject *object, const ZelKeyValueChange &change,
                                const void *context) override;
    void deliver(const ZelKeyValueChange &change);
    void deliverDeferred(const ZelKeyValueChange &change) override { deliver(change); }
    int methodIndex();
    void stop() override;

    QPointer<QObject> m_observer;
    ZelSelector m_selector;
    int m_methodIndex = -1;
};
