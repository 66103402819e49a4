// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Observation/ZelCancellable.h"

#include <QSharedPointer>
#include <QString>
#include <atomic>

/// The base of all observations: active from its making until cancel(), which is final.
///
/// Observations are held by shared pointers, as a rule in the registry of their owner (ZelObservations). They do not
/// own what they observe, and what they observe may die first. It is a mistake of the owner to let go of an active
/// observation: that is reported as a failed assertion, "Observation is not cancelled: ...", and the observation is
/// cancelled then.
///
/// A callback may cancel its own observation and let go of it: the observation and the callback live until it returns.
/// Observations are made and used on the main thread; cancel() may race with another cancel().
class ZEL_EXPORT ZelObservation : public ZelCancellable
{
public:
    void cancel() final;
    bool isCancelled() const final { return m_cancelled.load(std::memory_order_relaxed); }
    /// A text for messages: class, address, and what is observed.
    virtual QString description() const = 0;

protected:
    /// Keeps an observation alive the last reference went while the callback ran.
    class Delivery
    {
    public:
        explicit Delivery(ZelObservation *observation)
            : m_observation(observation)
        {
            ++m_observation->m_deliveries;
        }
        ~Delivery()
        {
            if (--m_observation->m_deliveries == 0 && m_observation->isCancelled())
                m_observation->endLastDelivery();
        }
        Q_DISABLE_COPY_MOVE(Delivery)

    private:
        ZelObservation *m_observation;
    };

    ZelObservation() = default;
    virtual ~ZelObservation() = default;
    Q_DISABLE_COPY_MOVE(ZelObservation)

    /// Makes an observation and starts it; one that throws while it starts leaves nothing behind.
    template<typename Observation, typename... Arguments>
    static QSharedPointer<Observation> started(Arguments &&...arguments)
    {
        const QSharedPointer<Observation> observation(new Observation(std::forward<Arguments>(arguments)...),
                                                      [](ZelObservation *released) { release(released); });
        try {
            observation->start();
        } catch (...) {
            observation->cancel();
            throw;
        }
        return observation;
    }

    /// Makes the registration.
    virtual void start() = 0;
    /// Undoes the registration and forgets what was observed. Called once.
    virtual void stop() = 0;
    /// Drops the callback. Called once, after stop(), when the callback does not run.
    virtual void dropCallback() {}

    /// "<Class: 0xADDRESS>"
    QString title(const char *className) const;

private:
    static void release(ZelObservation *observation);
    void endLastDelivery();

    std::atomic<bool> m_cancelled = false;
    bool m_released = false; // while its callback runs
    int m_deliveries = 0;
};
using ZelObservationPtr = QSharedPointer<ZelObservation>;
