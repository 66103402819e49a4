// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/ZelExport.h"
#include "Observation/ZelObservation.h"

#include <functional>

/// Calls a block at every notification of a name, by one sender or by any.
class ZEL_EXPORT ZelNotificationObservation final : public ZelObservation, private ZelNotificationObserver
{
public:
    using Block = std::function<void(ZelNotificationObservation *, const ZelNotification &)>;

    /// Starts to observe; a null center is the default one, a null object any sender. Asserts "name" and "block"; null
    /// if one of them is missing.
    static QSharedPointer<ZelNotificationObservation>
    observationWithCenter(ZelNotificationCenter *center, const QString &name, QObject *object, Block block);

    // Null after cancel().
    ZelNotificationCenter *center() const { return m_center; }
    const QString &name() const { return m_name; }
    QObject *object() const { return m_object; }
    QString description() const override;

private:
    friend class ZelObservation;
    ZelNotificationObservation(ZelNotificationCenter *center, const QString &name, QObject *object, Block block);
    void observeNotification(const ZelNotification &notification) override;
    void start() override;
    void stop() override;
    void dropCallback() override { m_block = nullptr; }

    QPointer<ZelNotificationCenter> m_center;
    QString m_name;
    QPointer<QObject> m_object;
    const QObject *m_objectAddress; // survives the object: the registration is removed by its address
    Block m_block;
};
