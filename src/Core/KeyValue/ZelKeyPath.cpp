// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyPath.h"

#include <QMutex>
#include <atomic>

/// A path, or the rest of one, with which it shares the text. What follows from the text is worked out once, when it is
/// needed.
struct ZelKeyPath::Entry
{
    Entry(const QString &source, qsizetype start)
        : source(source)
        , start(start)
        , dot(source.indexOf(u'.', start))
        , isSingleKey(dot < 0 || dot + 1 == source.size())
        , isWhole(start == 0)
    {
    }

    QStringView view() const { return QStringView(source).mid(start); }
    const QString &string() const
    {
        if (isWhole)
            return source;
        static QMutex mutex;
        const QMutexLocker locker(&mutex);
        if (text.isNull())
            text = source.mid(start);
        return text;
    }
    Entry *restEntry() const
    {
        Entry *known = rest.load(std::memory_order_acquire);
        if (known || isSingleKey)
            return known;
        auto *made = new Entry(source, dot + 1);
        if (rest.compare_exchange_strong(known, made, std::memory_order_acq_rel))
            return made;
        delete made; // another thread was faster
        return known;
    }

    const QString source;
    const qsizetype start;
    const qsizetype dot; // behind the first segment, or -1
    const bool isSingleKey;
    const bool isWhole;
    std::atomic<int> uses = 1;
    mutable std::atomic<ZelKey> first{};
    mutable std::atomic<Entry *> rest = nullptr; // holds a use
    mutable std::atomic<size_t> hash = 0;        // 0 if it is not known yet
    mutable QString text;
};

ZelKeyPath::ZelKeyPath(const QString &path)
    : m_entry(path.isEmpty() ? nullptr : new Entry(path, 0))
{
}

ZelKeyPath::ZelKeyPath(ZelKey key)
    : ZelKeyPath(key.path())
{
}

ZelKeyPath::ZelKeyPath(const ZelKeyPath &other)
    : m_entry(other.m_entry)
{
    if (m_entry)
        m_entry->uses.fetch_add(1, std::memory_order_relaxed);
}

/// Releases the rests in a loop: a recursion would be as deep as the path is long.
void ZelKeyPath::release(Entry *entry)
{
    while (entry && entry->uses.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        Entry *rest = entry->rest.load(std::memory_order_acquire);
        delete entry;
        entry = rest;
    }
}

const QString &ZelKeyPath::string() const
{
    static const QString none;
    return m_entry ? m_entry->string() : none;
}

ZelKey ZelKeyPath::first() const
{
    if (!m_entry)
        return {};
    ZelKey key = m_entry->first.load(std::memory_order_acquire);
    if (key.isEmpty()) {
        const qsizetype end = m_entry->dot < 0 ? m_entry->source.size() : m_entry->dot;
        key = ZelKey(m_entry->source.mid(m_entry->start, end - m_entry->start));
        m_entry->first.store(key, std::memory_order_release);
    }
    return key;
}

ZelKeyPath ZelKeyPath::rest() const
{
    Entry *rest = m_entry ? m_entry->restEntry() : nullptr;
    if (rest)
        rest->uses.fetch_add(1, std::memory_order_relaxed);
    return ZelKeyPath(rest);
}

bool ZelKeyPath::isSingleKey() const
{
    return !m_entry || m_entry->isSingleKey;
}

bool ZelKeyPath::isWithinLimits(const QString &path)
{
    return path.size() <= maximumLength && path.count(u'.') < maximumKeys;
}

bool ZelKeyPath::hasSameText(const ZelKeyPath &a, const ZelKeyPath &b)
{
    return a.m_entry->view() == b.m_entry->view();
}

size_t ZelKeyPath::hash() const
{
    if (!m_entry)
        return 0;
    size_t hash = m_entry->hash.load(std::memory_order_relaxed);
    if (hash == 0) {
        hash = qHash(m_entry->view()) | 1;
        m_entry->hash.store(hash, std::memory_order_relaxed);
    }
    return hash;
}
