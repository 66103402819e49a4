// SPDX-License-Identifier: MIT
#include "Core/KeyValue/private/ZelKeyPathChain.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelObjectRecord.h"
#include "Core/Values/ZelValues.h"

#include <QScopeGuard>

namespace {
const char g_levelContext = 0;
}

/// One object along the path. An object that answers key paths itself takes all that remains of the path.
class ZelKeyPathChain::Level final : public ZelKeyValueObserver
{
public:
    Level(ZelKeyPathChain &chain, size_t index, QObject *object, const ZelKeyPath &rest)
        : m_chain(chain)
        , m_index(index)
        , m_object(object)
        , m_rest(rest)
        , m_isLast(rest.isSingleKey() || ZelPropertyAccessor::interfaceOf(object))
    {
    }
    ~Level() { detach(); }

    void attach()
    {
        // Values are asked for at the last level only: those of the others are not the path's.
        constexpr quint32 values = ZelKeyValueObservingOptionNew | ZelKeyValueObservingOptionOld;
        constexpr quint32 prior = ZelKeyValueObservingOptionPrior;
        m_isAttached = true;
        ZelAddObserver(m_object, this, observedPath(), m_chain.m_options & (m_isLast ? values | prior : prior),
                       &g_levelContext);
    }
    void detach()
    {
        if (m_isAttached && m_object)
            ZelRemoveObserver(m_object, this, observedPath(), &g_levelContext);
        m_isAttached = false;
    }
    QObject *object() const { return m_object; }
    bool isLast() const { return m_isLast; }
    const ZelKeyPath &path() const { return m_rest; }
    /// Whether the object does not tell of changes of its key. One that answers keys itself does not count: its paths
    /// are read again by rereadKeyPath.
    bool isSilent() const
    {
        const ZelKey key = m_rest.first();
        const bool isOwn = !m_object || ZelPropertyAccessor::interfaceOf(m_object);
        const ZelPropertyAccessor *accessor = isOwn ? nullptr : ZelPropertyAccessor::find(m_object, key);
        return accessor && accessor->isSilent() && !ZelObjectRecord::announcesItself(m_object, key);
    }
    QObject *next() const
    {
        const ZelKey key = m_rest.first();
        return m_object && ZelHasKey(m_object, key) ? ZelObject(ZelValueForKey(m_object, key)) : nullptr;
    }

    void observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &change, const void *) override
    {
        if (m_isAttached)
            m_chain.changed(m_index, change);
    }

private:
    ZelKeyPath observedPath() const { return m_isLast ? m_rest : ZelKeyPath(m_rest.first()); }

    ZelKeyPathChain &m_chain;
    size_t m_index;
    QPointer<QObject> m_object;
    ZelKeyPath m_rest;
    bool m_isLast;
    bool m_isAttached = false;
};

/// The values of the whole path around a change at an upper level.
class ZelKeyPathChain::Source : public ZelKeyValueChangeSource
{
public:
    Source(const ZelKeyPathChain &chain, ZelKeptValue old)
        : m_chain(chain)
        , m_old(std::move(old))
    {
    }
    const QVariant &newValue() const override
    {
        if (!m_new)
            m_new = m_chain.value();
        return *m_new;
    }
    const ZelKeptValue &oldValue() const override { return m_old; }

private:
    bool areValuesDifferent() const override { return differ(m_old, newValue()); }

    const ZelKeyPathChain &m_chain;
    ZelKeptValue m_old;
    mutable std::optional<QVariant> m_new;
};

ZelKeyPathChain::ZelKeyPathChain(QObject *root, ZelKeyValueObserver *observer, const ZelKeyPath &path,
                                 ZelKeyValueObservingOptions options, const void *context)
    : m_root(root)
    , m_observer(observer)
    , m_path(path)
    , m_options(options)
    , m_context(context)
{
}

ZelKeyPathChain::~ZelKeyPathChain() = default;

void ZelKeyPathChain::start()
{
    m_levels.push_back(std::make_unique<Level>(*this, 0, m_root, m_path));
    m_levels.front()->attach();
    attachBelow(0);
    if (m_options & ZelKeyValueObservingOptionOld)
        m_last.keep(value());
    if (m_options & ZelKeyValueObservingOptionInitial) {
        const Source source(*this, {});
        deliver(ZelKeyValueChange(ZelKeyValueChangeSetting, &source, m_options & ~ZelKeyValueObservingOptionOld,
                                  nullptr, false));
    }
}

void ZelKeyPathChain::stop()
{
    m_observer = nullptr;
    detachFrom(0);
}

void ZelKeyPathChain::detachFrom(size_t level)
{
    while (m_levels.size() > level) {
        m_levels.back()->detach();
        if (m_delivering > 0)
            m_retired.push_back(std::move(m_levels.back()));
        m_levels.pop_back();
    }
}

bool ZelKeyPathChain::attachBelow(size_t level)
{
    for (size_t i = level; !m_levels[i]->isLast(); ++i) {
        QObject *next = m_levels[i]->next();
        if (i + 1 < m_levels.size() && m_levels[i + 1]->object() == next)
            return next && i == level; // the same object: what is below is unchanged
        detachFrom(i + 1);
        if (!next)
            return false;
        m_levels.push_back(std::make_unique<Level>(*this, i + 1, next, m_levels[i]->path().rest()));
        m_levels.back()->attach();
    }
    return false;
}

bool ZelKeyPathChain::rereadSilentBelow(size_t level)
{
    bool isSilent = false;
    for (size_t i = level + 1; i < m_levels.size(); ++i) {
        if (!m_levels[i]->isSilent())
            continue;
        isSilent = true;
        if (!attachBelow(i))
            break; // what is below is new
    }
    return isSilent;
}

QVariant ZelKeyPathChain::value() const
{
    if (m_levels.empty() || m_levels.back()->object() == nullptr)
        return {};
    const Level &last = *m_levels.back();
    return ZelHasKey(last.object(), last.path().first()) ? ZelValueForKeyPath(last.object(), last.path()) : QVariant();
}

void ZelKeyPathChain::deliver(const ZelKeyValueChange &change)
{
    if (m_observer && m_root)
        m_observer->observeValueForKeyPath(m_path, m_root, change, m_context);
}

void ZelKeyPathChain::changed(size_t level, const ZelKeyValueChange &change)
{
    const std::shared_ptr<ZelKeyPathChain> self = shared_from_this(); // the observer may end the observation
    ++m_delivering;
    const auto guard = qScopeGuard([this] {
        if (--m_delivering == 0)
            m_retired.clear();
    });
    const bool isLast = m_levels[level]->isLast();
    const bool wantsOld = m_options & ZelKeyValueObservingOptionOld;
    if (isLast) {
        if (wantsOld && !change.isPrior())
            m_last.keep(value());
        deliver(change);
        return;
    }
    if (change.isPrior()) {
        const Source source(*this, ZelKeptValue(value()));
        deliver(ZelKeyValueChange(ZelKeyValueChangeSetting, &source, m_options & ~ZelKeyValueObservingOptionNew,
                                  nullptr, true));
        return;
    }
    // If the next object is the same, the levels below hear of their changes themselves, and there is nothing to tell;
    // unless one of them is silent. An observer that got a notice before the change also gets the one after it.
    if (attachBelow(level) && !rereadSilentBelow(level) && !(m_options & ZelKeyValueObservingOptionPrior))
        return;
    const Source source(*this, m_last);
    if (wantsOld)
        m_last.keep(source.newValue());
    deliver(ZelKeyValueChange(ZelKeyValueChangeSetting, &source, m_options, nullptr, false));
}
