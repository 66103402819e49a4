// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKey.h"

#include <utility>

/// A dot-separated path of property names. Its parts are looked at when they are asked for, and remembered as long as a
/// copy of the path exists; making, copying and comparing paths is cheap.
///
/// A path of any length can be used. One that comes from a file is best checked with isWithinLimits. Paths may be made,
/// copied and used on any thread.
class ZelKeyPath
{
public:
    ZelKeyPath() = default;
    ZelKeyPath(const QString &path);
    ZelKeyPath(const char *path)
        : ZelKeyPath(QString::fromUtf8(path))
    {
    }
    ZelKeyPath(ZelKey key);
    ZelKeyPath(const ZelKeyPath &other);
    ZelKeyPath(ZelKeyPath &&other) noexcept
        : m_entry(std::exchange(other.m_entry, nullptr))
    {
    }
    ZelKeyPath &operator=(ZelKeyPath other) noexcept
    {
        std::swap(m_entry, other.m_entry);
        return *this;
    }
    ~ZelKeyPath()
    {
        if (m_entry)
            release(m_entry);
    }

    bool isEmpty() const { return !m_entry; }
    const QString &string() const;
    /// The first segment.
    ZelKey first() const;
    /// What follows the first dot; empty for a path of one segment.
    ZelKeyPath rest() const;
    bool isSingleKey() const;

    /// What is accepted from a description.
    static constexpr qsizetype maximumLength = 4096; ///< in UTF-16 units
    static constexpr qsizetype maximumKeys = 64;
    static bool isWithinLimits(const QString &path);

    friend bool operator==(const ZelKeyPath &a, const ZelKeyPath &b)
    {
        return a.m_entry == b.m_entry || (a.m_entry && b.m_entry && hasSameText(a, b));
    }
    friend size_t qHash(const ZelKeyPath &path, size_t seed = 0) { return path.hash() ^ seed; }

private:
    friend class ZelKey;
    struct Entry;
    explicit ZelKeyPath(Entry *entry)
        : m_entry(entry)
    {
    }
    static void release(Entry *entry);
    static bool hasSameText(const ZelKeyPath &a, const ZelKeyPath &b);
    size_t hash() const;

    Entry *m_entry = nullptr;
};
