// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Observation/ZelKeyValueObservation.h"

/// Calls a block at every change of a key path of an object. A change of a list's elements that nobody excluded with
/// the NoMutation option is delivered after the log line "WARNING: Mutation of Class.keyPath".
class ZEL_EXPORT ZelBlockObservation final : public ZelKeyValueObservation
{
public:
    using Block = std::function<void(ZelBlockObservation *, const ZelKeyValueChange &)>;

    /// Starts to observe. Asserts "object", "keyPath" and "block"; null if one of them is missing.
    static QSharedPointer<ZelBlockObservation> observationWithObject(QObject *object, const ZelKeyPath &keyPath,
                                                                     ZelKeyValueObservingOptions options, Block block);
    QString description() const override;

private:
    friend class ZelObservation;
    friend class ZelObservations;
    ZelBlockObservation(QObject *object, const ZelKeyPath &keyPath, ZelKeyValueObservingOptions options, Block block);
    const void *context() const override;
    void observeValueForKeyPath(const ZelKeyPath &keyPath, QObject *object, const ZelKeyValueChange &change,
                                const void *context) override;
    bool admitsMutation(const QObject *object) const;
    void deliverDeferred(const ZelKeyValueChange &change) override;
    void dropCallback() override { m_block = nullptr; }

    Block m_block;
    QPointer<QObject> m_owner; // the object on whose behalf it observes, if that is known
};
