// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeptValue.h"
#include "Core/Values/ZelIndexSet.h"
#include "Core/ZelExport.h"

#include <QVariant>
#include <optional>

/// What an observer asks for, combined with a bitwise or. Further flags, which the observation classes have, are kept.
using ZelKeyValueObservingOptions = quint32;
enum ZelKeyValueObservingOption : quint32 {
    ZelKeyValueObservingOptionNew = 1,     ///< the change holds the new value
    ZelKeyValueObservingOptionOld = 2,     ///< the change holds the old value
    ZelKeyValueObservingOptionInitial = 4, ///< a change is delivered at once, before the registration returns
    ZelKeyValueObservingOptionPrior = 8,   ///< a change is delivered before and again after it happens
};

enum ZelKeyValueChangeKind : quint32 {
    ZelKeyValueChangeSetting = 1,
    ZelKeyValueChangeInsertion = 2,
    ZelKeyValueChangeRemoval = 3,
    ZelKeyValueChangeReplacement = 4
};

/// The values of one change, shared by all its observers and read from the object only when asked for.
class ZEL_EXPORT ZelKeyValueChangeSource
{
public:
    virtual ~ZelKeyValueChangeSource() = default;
    virtual const QVariant &newValue() const = 0;
    virtual const ZelKeptValue &oldValue() const = 0;
    /// Whether old and new differ; this is worked out once for a change.
    bool changed() const
    {
        if (m_changed == Unknown)
            m_changed = areValuesDifferent() ? Yes : No;
        return m_changed == Yes;
    }

protected:
    virtual bool areValuesDifferent() const = 0;
    /// Compares two values. An absent value and the null object are both no value; an object that has died differs from
    /// every other.
    static bool differ(const ZelKeptValue &oldValue, const QVariant &newValue);

private:
    mutable enum : quint8 { Unknown, Yes, No } m_changed = Unknown;
};

/// A change as one observer sees it, with the old and new values only if the observer asked for them.
///
/// While a change is delivered it refers to the values. A copy holds them and may be kept; an object that dies
/// meanwhile reads as absent in it.
class ZEL_EXPORT ZelKeyValueChange
{
public:
    ZelKeyValueChange() = default;
    /// A change that holds its values.
    ZelKeyValueChange(ZelKeyValueChangeKind kind, const std::optional<QVariant> &oldValue,
                      const std::optional<QVariant> &newValue, const std::optional<ZelIndexSet> &indexes = {},
                      bool isPrior = false);
    /// A change that refers to its values for the time of its delivery.
    ZelKeyValueChange(ZelKeyValueChangeKind kind, const ZelKeyValueChangeSource *source,
                      ZelKeyValueObservingOptions options, const ZelIndexSet *indexes, bool isPrior)
        : m_kind(kind)
        , m_options(options)
        , m_isPrior(isPrior)
        , m_source(source)
        , m_sharedIndexes(indexes)
    {
    }
    ZelKeyValueChange(const ZelKeyValueChange &other);
    ZelKeyValueChange &operator=(const ZelKeyValueChange &other);

    /// 0 for an empty change.
    quint32 keyValueChangeKind() const { return m_kind; }
    /// The values; the null object reads as absent.
    QVariant keyValueChangeNew() const;
    QVariant keyValueChangeOld() const;
    std::optional<ZelIndexSet> keyValueChangeIndexes() const;
    bool isPrior() const { return m_isPrior; }
    bool hasNew() const
    {
        return m_source
                   ? (m_options & ZelKeyValueObservingOptionNew) && !m_isPrior && m_kind != ZelKeyValueChangeRemoval
                   : m_new.has_value();
    }
    bool hasOld() const
    {
        return m_source ? (m_options & ZelKeyValueObservingOptionOld) && m_kind != ZelKeyValueChangeInsertion
                        : m_old.has_value();
    }

    /// Whether old and new differ; two absent values do not.
    bool keyValueChanged() const
    {
        return m_source && hasNew() && hasOld() ? m_source->changed() : areValuesDifferent();
    }

    /// The elements that are only in new, or only in old, each once and in their order. The answer is nothing if new
    /// (for added objects) or old (for removed ones) is absent. Throws a ZelException named "Illegal state" with the
    /// reason "Unsupported type of value" for a value that is neither absent nor a collection.
    std::optional<QVariantList> keyValueChangeAddedObjects() const;
    std::optional<QVariantList> keyValueChangeRemovedObjects() const;

    /// Takes over kind, new value and indexes of a later change. The old value stays, and the result is marked as prior
    /// if one of the two is.
    void mergeLaterChange(const ZelKeyValueChange &later);

private:
    friend class ZelObservedKey; // shows one change to all its observers, to each with its own options
    bool areValuesDifferent() const;

    quint32 m_kind = 0;
    ZelKeyValueObservingOptions m_options = 0;
    bool m_isPrior = false;
    const ZelKeyValueChangeSource *m_source = nullptr;
    const ZelIndexSet *m_sharedIndexes = nullptr;
    std::optional<ZelKeptValue> m_new;
    std::optional<ZelKeptValue> m_old;
    std::optional<ZelIndexSet> m_indexes;
};
