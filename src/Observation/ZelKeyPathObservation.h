// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/ZelExport.h"
#include "Observation/ZelObservation.h"

#include <QList>
#include <QPointer>
#include <functional>
#include <memory>

/// Calls a block at every change anywhere along a key path, also in the elements of lists on the way.
///
/// It is a tree: each observation watches the first key of its path on its object, and has a child for every object
/// that it reaches through that key. The block gets the observation of the tree at which the change happened, and is
/// called twice for a change, before (a prior change) and after it. A change above rebuilds everything below, which
/// costs time in proportion to the elements there.
class ZEL_EXPORT ZelKeyPathObservation final : public ZelObservation, private ZelKeyValueObserver
{
public:
    using Block = std::function<void(ZelKeyPathObservation *, const ZelKeyValueChange &)>;

    /// Starts to observe. Asserts "object", "keyPath" and "block"; null if one of them is missing. The options are
    /// ignored: no observation of the tree has any, so that changes carry no values and are not filtered.
    static QSharedPointer<ZelKeyPathObservation>
    observationWithObject(QObject *object, const ZelKeyPath &keyPath, ZelKeyValueObservingOptions options, Block block);

    /// Null once it has died, or after cancel().
    QObject *object() const { return m_object; }
    /// What remains of the path at this level; empty after cancel().
    const ZelKeyPath &keyPath() const { return m_keyPath; }
    /// None, whatever was asked for.
    ZelKeyValueObservingOptions options() const { return 0; }
    ZelKey key() const { return m_key; }
    /// Empty at the last level.
    const ZelKeyPath &restOfKeyPath() const { return m_restOfKeyPath; }
    const QList<QSharedPointer<ZelKeyPathObservation>> &observations() const { return m_observations; }
    QString description() const override;

    /// Cancels and drops the children.
    void cancelObservations();
    /// Makes the children again, from the present value of the key.
    void updateObservers();

private:
    friend class ZelObservation;
    using SharedBlock = std::shared_ptr<const Block>;
    ZelKeyPathObservation(QObject *object, const ZelKeyPath &keyPath, const SharedBlock &block);
    void observeValueForKeyPath(const ZelKeyPath &keyPath, QObject *object, const ZelKeyValueChange &change,
                                const void *context) override;
    void addObservation(const QVariant &value);
    void start() override;
    void stop() override;
    void dropCallback() override { m_block.reset(); }

    QPointer<QObject> m_object;
    ZelKeyPath m_keyPath;
    ZelKey m_key;
    ZelKeyPath m_restOfKeyPath;
    SharedBlock m_block;
    QList<QSharedPointer<ZelKeyPathObservation>> m_observations;
};
