// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/ZelExport.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Observation/ZelObservation.h"

#include <QPointer>
#include <memory>
#include <optional>

// Further options of key-value observations, in one word with those of the platform.
/// A change whose old and new values are equal is dropped. The number contains the bits of the options for the new and
/// the old value, and any common bit counts: whoever asks for the new or the old value gets the filter, too.
inline constexpr ZelKeyValueObservingOptions ZelKeyValueObservingOptionEqualCheck = 0x103;
/// Only changes of kind Setting are delivered.
inline constexpr ZelKeyValueObservingOptions ZelKeyValueObservingOptionNoMutation = 0x200;
/// Changes are not delivered at once, but together: later in the turn, or at a checkpoint.
inline constexpr ZelKeyValueObservingOptions ZelKeyValueObservingOptionDeferred = 0x400;

/// The base of the observations of one key path of one object.
///
/// With the Deferred option the changes until the delivery become one: with the first one's old value, and the new
/// value, kind and indexes of the last one. What the callback of a deferred observation itself changes is not
/// delivered.
class ZEL_EXPORT ZelKeyValueObservation : public ZelObservation, protected ZelKeyValueObserver
{
public:
    /// Null once it has died, or after cancel().
    QObject *object() const { return m_object; }
    /// Empty after cancel().
    const ZelKeyPath &keyPath() const { return m_keyPath; }
    ZelKeyValueObservingOptions options() const { return m_options; }
    /// Null without the Deferred option.
    ZelDelayedInvocation *delayedInvocation() const { return m_deferred ? &m_deferred->invocation : nullptr; }
    /// The change that waits for its deferred delivery.
    std::optional<ZelKeyValueChange> lastChange() const { return m_deferred ? m_deferred->change : std::nullopt; }

protected:
    ZelKeyValueObservation(QObject *object, const ZelKeyPath &keyPath, ZelKeyValueObservingOptions options);

    /// The address with which the class registers.
    virtual const void *context() const = 0;
    /// Calls the callback with a deferred change, within a Delivery.
    virtual void deliverDeferred(const ZelKeyValueChange &change) = 0;

    /// Whether the change is not to be delivered now, because it changes nothing or is kept for later.
    bool holdsBack(const ZelKeyValueChange &change)
    {
        // Any common bit counts, see ZelKeyValueObservingOptionEqualCheck.
        if (m_options & ZelKeyValueObservingOptionEqualCheck && !change.keyValueChanged())
            return true;
        return m_deferred && defer(change);
    }

    void start() override;
    void stop() override;

private:
    struct Deferred
    {
        explicit Deferred(ZelKeyValueObservation *observation)
            : invocation([observation] { observation->runDeferred(); })
        {
        }
        ZelDelayedInvocation invocation;
        std::optional<ZelKeyValueChange> change;
    };
    bool defer(const ZelKeyValueChange &change);
    void runDeferred();

    QPointer<QObject> m_object;
    ZelKeyPath m_keyPath;
    ZelKeyValueObservingOptions m_options;
    std::unique_ptr<Deferred> m_deferred;
};
