// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKey.h"
#include "Core/ZelExport.h"

#include <utility>

/// A dot-separated path of property names. Making, copying and comparing paths is cheap: a path is taken apart when its
/// parts are asked for, and remembers them as long as a copy of it exists.
///
/// A path may have any length. One that comes from a file is best checked with isWithinLimits. Paths may be made,
/// copied and used on any thread.
class ZEL_EXPORT ZelKeyPath
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

    /// The limits of a path in a description.
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
